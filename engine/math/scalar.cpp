#include "math/scalar.h"

#include <cmath>

namespace vorlik {

namespace {

// Three quarters of a turn: sin(t * pi + this) runs from -1 to 1 as t runs from 0 to 1.
constexpr double kThreeHalvesPi = 1.5 * kPiDouble;

bool insideUnit(float t) { return t >= 0.0f && t <= 1.0f; }

} // namespace

int wrap(int v, int a, int b)
{
    if (a == b) return a;
    // Widened so that ranges spanning most of the int range cannot overflow.
    const int64_t lo = a < b ? a : b;
    const int64_t hi = a < b ? b : a;
    int64_t r = (v - lo) % (hi - lo);
    if (r < 0) r += hi - lo;
    return static_cast<int>(lo + r);
}

float wrap(float v, float a, float b)
{
    if (a == b) return a;
    const float lo = a < b ? a : b;
    const float hi = a < b ? b : a;
    float r = std::fmod(v - lo, hi - lo);
    if (r < 0.0f) r += hi - lo;
    return lo + r;
}

float clamp(float v, float min, float max)
{
    if (v > max) return max;
    if (min > v) return min;
    return v;
}

int minOf(const int* values, uint32_t count)
{
    int best = values[0];
    for (uint32_t i = 1; i < count; ++i)
        if (values[i] < best) best = values[i];
    return best;
}

int maxOf(const int* values, uint32_t count)
{
    int best = values[0];
    for (uint32_t i = 1; i < count; ++i)
        if (values[i] > best) best = values[i];
    return best;
}

float minOf(const float* values, uint32_t count)
{
    float best = values[0];
    for (uint32_t i = 1; i < count; ++i)
        if (values[i] < best) best = values[i];
    return best;
}

float lerp(float t, float a, float b) { return a + (b - a) * t; }

float smoothLerp(float t, float a, float b)
{
    if (!insideUnit(t)) return lerp(t, a, b);
    const float eased = static_cast<float>((std::sin(t * kPiDouble + kThreeHalvesPi) + 1.0) / 2.0);
    return lerp(eased, a, b);
}

float easeOutLerp(float t, float a, float b)
{
    if (!insideUnit(t)) return lerp(t, a, b);
    return lerp(static_cast<float>(std::sin(t * kPiDouble / 2.0)), a, b);
}

float easeInLerp(float t, float a, float b)
{
    if (!insideUnit(t)) return lerp(t, a, b);
    return lerp(static_cast<float>(1.0 - std::cos(t * kPiDouble / 2.0)), a, b);
}

uint32_t nextPowerOfTwo(uint32_t v)
{
    if (v < 2) return 1;
    --v;
    v |= v >> 1;
    v |= v >> 2;
    v |= v >> 4;
    v |= v >> 8;
    v |= v >> 16;
    return v + 1;
}

bool isPowerOfTwo(uint32_t v) { return v != 0 && (v & (v - 1)) == 0; }

uint32_t lowerPowerOfTwo(uint32_t v)
{
    // The texture code rounds image sizes down. It was once meant to pick the nearer neighbour, but
    // it compared the distances in unsigned arithmetic, where the upper one never wins; rounding
    // down is what every caller has always received, so that is what this does.
    if (v == 0) return 0;
    uint32_t lower = 1;
    while (lower <= v / 2) lower <<= 1;
    return lower;
}

} // namespace vorlik
