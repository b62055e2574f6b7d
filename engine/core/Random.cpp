#include "core/Random.h"

#include <cstdlib>

namespace vorlik {

namespace {
constexpr int32_t kCursorMask = Random::kTableSize - 1;
constexpr int32_t kPositiveMask = 0x7FFFFFFF;
// 2 to the power -31: turns a 31-bit integer into a float in [0, 1].
constexpr float kIntToUnit = 0x1p-31f;
} // namespace

Random::Random(unsigned s)
    : ints(static_cast<int32_t*>(std::malloc(sizeof(int32_t) * kTableSize))),
      floats(static_cast<float*>(std::malloc(sizeof(float) * kTableSize))), intCursor(0), floatCursor(0)
{
    seed(s);
}

Random::~Random()
{
    std::free(ints);
    std::free(floats);
}

void Random::seed(unsigned s)
{
    std::srand(s);
    intCursor = 0;
    floatCursor = 0;
    // One integer, then one float, per slot: the order of the rand() calls fixes the sequences.
    for (int32_t i = 0; i < kTableSize; ++i) {
        ints[i] = std::rand() & kPositiveMask;
        floats[i] = static_cast<float>(std::rand() & kPositiveMask) * kIntToUnit;
    }
}

int32_t Random::next()
{
    const int32_t v = ints[intCursor];
    ints[intCursor] = ~v & kPositiveMask;
    intCursor = (intCursor + 1) & kCursorMask;
    return v;
}

int32_t Random::next(int32_t n) { return next() % n; }

int32_t Random::range(int32_t a, int32_t b)
{
    if (a == b) return a;
    return a + next() % (b - a);
}

float Random::nextFloat()
{
    const float v = floats[floatCursor];
    floats[intCursor] = 1.0f - v;
    floatCursor = (floatCursor + 1) & kCursorMask;
    return v;
}

float Random::nextFloat(float max) { return nextFloat() * max; }

float Random::range(float a, float b) { return a + nextFloat() * (b - a); }

} // namespace vorlik
