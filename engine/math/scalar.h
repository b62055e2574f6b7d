// Scalar helpers used by the vector and matrix types and by game code: pi and the conversions
// between degrees and radians, wrapping into a range, clamping, array minimum and maximum,
// interpolation curves and power-of-two rounding.
// The interpolations take t in [0, 1]; outside that range they all extrapolate linearly.
// The array helpers read the first element unconditionally, so they need at least one value.
#pragma once

#include <cstdint>

namespace vorlik {

// Pi in double precision, for the helpers that compute in double (the interpolation curves).
constexpr double kPiDouble = 3.14159265358979323846;
// The same rounded to float, for angles kept in float.
constexpr float kPi = static_cast<float>(kPiDouble);

// Drawables turn by degrees, while sin, cos and the rotations take radians.
constexpr float degreesToRadians(float degrees) { return degrees * (kPi / 180.0f); }
constexpr float radiansToDegrees(float radians) { return radians * (180.0f / kPi); }

// v folded into [min(a, b), max(a, b)); a when the range is empty.
int wrap(int v, int a, int b);
// The same fold for floats (positions on the torus, angles in a period).
float wrap(float v, float a, float b);

// max when v > max, else min when min > v, else v. The upper bound is tested first, so with
// min > max any value at or below max comes back as min.
float clamp(float v, float min, float max);

int minOf(const int* values, uint32_t count);
int maxOf(const int* values, uint32_t count);
float minOf(const float* values, uint32_t count);

// a + (b - a) * t.
float lerp(float t, float a, float b);
// Sine ease in and out, the same curve as (1 - cos(pi * t)) / 2.
float smoothLerp(float t, float a, float b);
// Fast start, slow finish: sin(t * pi / 2).
float easeOutLerp(float t, float a, float b);
// Slow start, fast finish: 1 - cos(t * pi / 2).
float easeInLerp(float t, float a, float b);

// 1 below 2, else the smallest power of two >= v; 0 when that would not fit in 32 bits.
uint32_t nextPowerOfTwo(uint32_t v);
bool isPowerOfTwo(uint32_t v);
// 0 for 0, else the largest power of two <= v (never rounds up, even when that is nearer).
uint32_t lowerPowerOfTwo(uint32_t v);

} // namespace vorlik
