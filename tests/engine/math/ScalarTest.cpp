#include "math/scalar.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

using namespace vorlik;

static_assert(degreesToRadians(0.0f) == 0.0f, "the conversions are usable in constant expressions");
static_assert(radiansToDegrees(0.0f) == 0.0f, "the conversions are usable in constant expressions");

TEST(Pi, FloatIsTheDoubleRounded)
{
    EXPECT_EQ(kPi, static_cast<float>(kPiDouble));
    EXPECT_DOUBLE_EQ(kPiDouble, std::acos(-1.0));
    EXPECT_FLOAT_EQ(kPi, std::acos(-1.0f));
}

TEST(DegreesToRadians, QuarterHalfAndFullTurns)
{
    EXPECT_FLOAT_EQ(degreesToRadians(90.0f), kPi / 2.0f);
    EXPECT_FLOAT_EQ(degreesToRadians(180.0f), kPi);
    EXPECT_FLOAT_EQ(degreesToRadians(360.0f), 2.0f * kPi);
    EXPECT_FLOAT_EQ(degreesToRadians(-45.0f), -kPi / 4.0f);
    EXPECT_EQ(degreesToRadians(0.0f), 0.0f);
}

TEST(RadiansToDegrees, QuarterHalfAndFullTurns)
{
    EXPECT_FLOAT_EQ(radiansToDegrees(kPi / 2.0f), 90.0f);
    EXPECT_FLOAT_EQ(radiansToDegrees(kPi), 180.0f);
    EXPECT_FLOAT_EQ(radiansToDegrees(-2.0f * kPi), -360.0f);
    EXPECT_FLOAT_EQ(radiansToDegrees(1.0f), 57.29578f);
}

TEST(DegreesToRadians, RoundTripKeepsTheAngle)
{
    for (float degrees = -720.0f; degrees <= 720.0f; degrees += 7.5f)
        EXPECT_NEAR(radiansToDegrees(degreesToRadians(degrees)), degrees, 1e-4f) << degrees;
}

TEST(Wrap, NegativeValueWrapsToTopOfRange) { EXPECT_EQ(wrap(-1, 0, 10), 9); }

TEST(Wrap, ReversedBoundsAreOrdered) { EXPECT_EQ(wrap(5, 10, 0), 5); }

TEST(Wrap, EmptyRangeReturnsBound) { EXPECT_EQ(wrap(3, 7, 7), 7); }

TEST(Wrap, UpperBoundIsExcluded)
{
    EXPECT_EQ(wrap(10, 0, 10), 0);
    EXPECT_EQ(wrap(25, 0, 10), 5);
    EXPECT_EQ(wrap(-21, 0, 10), 9);
    EXPECT_EQ(wrap(4, 5, 8), 7);
}

TEST(Wrap, WideRangeDoesNotOverflow)
{
    EXPECT_EQ(wrap(INT_MAX, INT_MIN, INT_MAX), INT_MIN);
    EXPECT_EQ(wrap(-5, INT_MAX, INT_MIN), -5);
    EXPECT_EQ(wrap(INT_MIN, 0, 10), 2);
}

TEST(Wrap, FloatFoldsIntoHalfOpenRange)
{
    EXPECT_FLOAT_EQ(wrap(4100.0f, 0.0f, 4096.0f), 4.0f);
    EXPECT_FLOAT_EQ(wrap(-6.0f, 0.0f, 4096.0f), 4090.0f);
    EXPECT_FLOAT_EQ(wrap(4.0f, 3.0f, -3.0f), -2.0f);
    EXPECT_FLOAT_EQ(wrap(2.0f, 1.5f, 1.5f), 1.5f);
}

TEST(Clamp, BoundsAppliedUpperFirst)
{
    EXPECT_FLOAT_EQ(clamp(2.0f, 0.0f, 1.0f), 1.0f);
    EXPECT_FLOAT_EQ(clamp(-2.0f, 0.0f, 1.0f), 0.0f);
    EXPECT_FLOAT_EQ(clamp(0.25f, 0.0f, 1.0f), 0.25f);
    // With the bounds crossed, a value under the upper bound still ends at the lower one.
    EXPECT_FLOAT_EQ(clamp(0.0f, 0.35f, 0.9f), 0.35f);
    EXPECT_FLOAT_EQ(clamp(0.5f, 0.35f, 0.2f), 0.2f);
    EXPECT_FLOAT_EQ(clamp(0.1f, 0.35f, 0.2f), 0.35f);
}

TEST(MinMax, IntegerArrays)
{
    const int values[] = {4, -7, 12, 0, 12, -7};
    EXPECT_EQ(minOf(values, 6), -7);
    EXPECT_EQ(maxOf(values, 6), 12);
    EXPECT_EQ(minOf(values, 1), 4);
    EXPECT_EQ(maxOf(values + 1, 1), -7);
}

TEST(MinMax, FloatArray)
{
    const float values[] = {2.5f, 1.25f, 3.0f, -0.5f};
    EXPECT_FLOAT_EQ(minOf(values, 4), -0.5f);
    EXPECT_FLOAT_EQ(minOf(values, 2), 1.25f);
}

TEST(Lerp, BlendsAndExtrapolates)
{
    EXPECT_FLOAT_EQ(lerp(0.0f, 2.0f, 6.0f), 2.0f);
    EXPECT_FLOAT_EQ(lerp(0.25f, 2.0f, 6.0f), 3.0f);
    EXPECT_FLOAT_EQ(lerp(1.0f, 2.0f, 6.0f), 6.0f);
    EXPECT_FLOAT_EQ(lerp(-0.5f, 2.0f, 6.0f), 0.0f);
}

TEST(SmoothLerp, EndsAndMiddle)
{
    EXPECT_NEAR(smoothLerp(0.0f, 10.0f, 20.0f), 10.0f, 1e-5f);
    EXPECT_FLOAT_EQ(smoothLerp(0.5f, 10.0f, 20.0f), 15.0f);
    EXPECT_FLOAT_EQ(smoothLerp(1.0f, 10.0f, 20.0f), 20.0f);
}

TEST(SmoothLerp, ExtrapolatesLinearlyOutsideUnit)
{
    EXPECT_FLOAT_EQ(smoothLerp(1.5f, 10.0f, 20.0f), 25.0f);
    EXPECT_FLOAT_EQ(smoothLerp(-1.0f, 10.0f, 20.0f), 0.0f);
}

TEST(SmoothLerp, IsTheCosineEase)
{
    for (float t = 0.0f; t <= 1.0f; t += 0.125f) {
        const double s = (1.0 - std::cos(kPiDouble * t)) / 2.0;
        EXPECT_NEAR(smoothLerp(t, 0.0f, 1.0f), s, 1e-6) << "t = " << t;
    }
    // Slow at both ends: the first eighth covers far less than an eighth of the way.
    EXPECT_LT(smoothLerp(0.125f, 0.0f, 1.0f), 0.05f);
}

TEST(EaseOutLerp, SineCurveInsideUnit)
{
    EXPECT_FLOAT_EQ(easeOutLerp(0.0f, 0.0f, 100.0f), 0.0f);
    EXPECT_FLOAT_EQ(easeOutLerp(0.5f, 0.0f, 100.0f),
                    static_cast<float>(std::sin(kPiDouble / 4.0)) * 100.0f);
    EXPECT_FLOAT_EQ(easeOutLerp(1.0f, 0.0f, 100.0f), 100.0f);
    EXPECT_FLOAT_EQ(easeOutLerp(2.0f, 0.0f, 100.0f), 200.0f);
}

TEST(EaseInLerp, CosineCurveInsideUnit)
{
    EXPECT_FLOAT_EQ(easeInLerp(0.0f, 0.0f, 100.0f), 0.0f);
    EXPECT_NEAR(easeInLerp(0.5f, 0.0f, 100.0f), (1.0 - std::cos(kPiDouble / 4.0)) * 100.0, 1e-4);
    EXPECT_NEAR(easeInLerp(1.0f, 0.0f, 100.0f), 100.0f, 1e-4f);
    EXPECT_FLOAT_EQ(easeInLerp(-1.0f, 0.0f, 100.0f), -100.0f);
}

TEST(NextPowerOfTwo, RoundsUp)
{
    EXPECT_EQ(nextPowerOfTwo(0), 1u);
    EXPECT_EQ(nextPowerOfTwo(1), 1u);
    EXPECT_EQ(nextPowerOfTwo(2), 2u);
    EXPECT_EQ(nextPowerOfTwo(3), 4u);
    EXPECT_EQ(nextPowerOfTwo(640), 1024u);
    EXPECT_EQ(nextPowerOfTwo(1024), 1024u);
    EXPECT_EQ(nextPowerOfTwo(1025), 2048u);
    EXPECT_EQ(nextPowerOfTwo(0x80000000u), 0x80000000u);
}

TEST(IsPowerOfTwo, OneAndExactPowersOnly)
{
    EXPECT_FALSE(isPowerOfTwo(0));
    EXPECT_TRUE(isPowerOfTwo(1));
    EXPECT_TRUE(isPowerOfTwo(2));
    EXPECT_FALSE(isPowerOfTwo(3));
    EXPECT_TRUE(isPowerOfTwo(256));
    EXPECT_FALSE(isPowerOfTwo(720));
    EXPECT_TRUE(isPowerOfTwo(0x80000000u));
}

TEST(LowerPowerOfTwo, SmallValues)
{
    EXPECT_EQ(lowerPowerOfTwo(0), 0u);
    EXPECT_EQ(lowerPowerOfTwo(1), 1u);
    EXPECT_EQ(lowerPowerOfTwo(2), 2u);
    EXPECT_EQ(lowerPowerOfTwo(512), 512u);
}

TEST(LowerPowerOfTwo, NeverChoosesUpperNeighbourEvenWhenNearer)
{
    EXPECT_EQ(lowerPowerOfTwo(3), 2u);
    EXPECT_EQ(lowerPowerOfTwo(1000), 512u);
    EXPECT_EQ(lowerPowerOfTwo(1023), 512u);
    EXPECT_EQ(lowerPowerOfTwo(0xFFFFFFFFu), 0x80000000u);
}
