#include "math/vec2.h"
#include "math/scalar.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vorlik;

namespace {
constexpr float kHalfPi = kPi / 2.0f;
}

TEST(Vec2, DefaultIsZero) { EXPECT_EQ(vec2(), vec2(0.0f, 0.0f)); }

TEST(Vec2, ComponentWiseArithmetic)
{
    const vec2 a(3.0f, -2.0f), b(0.5f, 4.0f);
    EXPECT_EQ(a + b, vec2(3.5f, 2.0f));
    EXPECT_EQ(a - b, vec2(2.5f, -6.0f));
    EXPECT_EQ(a * b, vec2(1.5f, -8.0f));
    EXPECT_EQ(a / b, vec2(6.0f, -0.5f));
    EXPECT_EQ(a + 1.0f, vec2(4.0f, -1.0f));
    EXPECT_EQ(a - 1.0f, vec2(2.0f, -3.0f));
    EXPECT_EQ(a * 2.0f, vec2(6.0f, -4.0f));
    EXPECT_EQ(a / 2.0f, vec2(1.5f, -1.0f));
    EXPECT_EQ(-a, vec2(-3.0f, 2.0f));
}

TEST(Vec2, InPlaceArithmetic)
{
    vec2 v(1.0f, 2.0f);
    v += vec2(1.0f, 1.0f);
    EXPECT_EQ(v, vec2(2.0f, 3.0f));
    v -= vec2(0.5f, 0.5f);
    EXPECT_EQ(v, vec2(1.5f, 2.5f));
    v *= vec2(2.0f, 2.0f);
    EXPECT_EQ(v, vec2(3.0f, 5.0f));
    v /= vec2(3.0f, 5.0f);
    EXPECT_EQ(v, vec2(1.0f, 1.0f));
    v += 1.0f;
    v *= 4.0f;
    v -= 2.0f;
    v /= 2.0f;
    EXPECT_EQ(v, vec2(3.0f, 3.0f));
}

TEST(Vec2, DivisionByZeroGivesZeroVector)
{
    EXPECT_EQ(vec2(3.0f, 4.0f) / 0.0f, vec2(0.0f, 0.0f));
    vec2 v(3.0f, 4.0f);
    v /= 0.0f;
    EXPECT_EQ(v, vec2(0.0f, 0.0f));
}

TEST(Vec2, Length)
{
    EXPECT_FLOAT_EQ(vec2(3.0f, 4.0f).length(), 5.0f);
    EXPECT_FLOAT_EQ(vec2(3.0f, 4.0f).lengthSquared(), 25.0f);
    EXPECT_FLOAT_EQ(distance(vec2(1.0f, 1.0f), vec2(4.0f, 5.0f)), 5.0f);
}

TEST(Vec2, DotAndCross)
{
    EXPECT_FLOAT_EQ(vec2(1.0f, 2.0f).dot(vec2(3.0f, -4.0f)), -5.0f);
    EXPECT_FLOAT_EQ(vec2(1.0f, 0.0f).cross(vec2(0.0f, 1.0f)), 1.0f);
    EXPECT_FLOAT_EQ(vec2(0.0f, 1.0f).cross(vec2(1.0f, 0.0f)), -1.0f);
}

TEST(Vec2, NormalizeGivesUnitLength)
{
    vec2 v(3.0f, 4.0f);
    v.normalize();
    EXPECT_FLOAT_EQ(v.x, 0.6f);
    EXPECT_FLOAT_EQ(v.y, 0.8f);
    EXPECT_EQ(vec2(0.0f, -7.0f).normalized(), vec2(0.0f, -1.0f));
}

TEST(Vec2, NormalizeZeroLeavesZero)
{
    vec2 v;
    v.normalize();
    EXPECT_EQ(v, vec2(0.0f, 0.0f));
    EXPECT_EQ(vec2().normalized(), vec2(0.0f, 0.0f));
}

TEST(Vec2, AngleStraightAlongPlusXIs360)
{
    EXPECT_FLOAT_EQ(vec2(0.0f, 0.0f).angleTo(vec2(1.0f, 0.0f)), 360.0f);
}

TEST(Vec2, AngleToNegativeYIs90) { EXPECT_FLOAT_EQ(vec2(0.0f, 0.0f).angleTo(vec2(0.0f, -1.0f)), 90.0f); }

TEST(Vec2, AngleToPositiveYIs270) { EXPECT_FLOAT_EQ(vec2(0.0f, 0.0f).angleTo(vec2(0.0f, 1.0f)), 270.0f); }

TEST(Vec2, AngleLiesInZeroExclusiveTo360)
{
    const vec2 from(10.0f, -5.0f);
    EXPECT_FLOAT_EQ(from.angleTo(from + vec2(-1.0f, 0.0f)), 180.0f);
    EXPECT_FLOAT_EQ(from.angleTo(from + vec2(1.0f, -1.0f)), 45.0f);
    EXPECT_FLOAT_EQ(from.angleTo(from + vec2(1.0f, 1.0f)), 315.0f);
    for (int i = 0; i < 64; ++i) {
        const float a = from.angleTo(from + vec2(1.0f, 0.0f).rotated(i * 0.1f));
        EXPECT_GT(a, 0.0f);
        EXPECT_LE(a, 360.0f);
    }
}

TEST(Vec2, RotateIsCounterClockwise)
{
    const vec2 r = vec2(1.0f, 0.0f).rotated(kHalfPi);
    EXPECT_NEAR(r.x, 0.0f, 1e-6f);
    EXPECT_NEAR(r.y, 1.0f, 1e-6f);
    vec2 v(2.0f, 1.0f);
    v.rotate(-kHalfPi);
    EXPECT_NEAR(v.x, 1.0f, 1e-6f);
    EXPECT_NEAR(v.y, -2.0f, 1e-6f);
}

TEST(Vec2, RotateKeepsLength)
{
    const vec2 v(3.0f, 4.0f);
    EXPECT_NEAR(v.rotated(0.7f).length(), 5.0f, 1e-5f);
}

TEST(Vec2, DistanceToLine)
{
    EXPECT_FLOAT_EQ(vec2(3.0f, 4.0f).distanceToLine(vec2(0.0f, 0.0f), vec2(10.0f, 0.0f)), 4.0f);
    EXPECT_FLOAT_EQ(vec2(3.0f, -4.0f).distanceToLine(vec2(0.0f, 0.0f), vec2(10.0f, 0.0f)), 4.0f);
    // The line is infinite: a point beyond the end still measures its perpendicular distance.
    EXPECT_FLOAT_EQ(vec2(20.0f, 2.0f).distanceToLine(vec2(0.0f, 0.0f), vec2(10.0f, 0.0f)), 2.0f);
    EXPECT_NEAR(vec2(0.0f, 2.0f).distanceToLine(vec2(0.0f, 0.0f), vec2(1.0f, 1.0f)), std::sqrt(2.0f), 1e-6f);
}

TEST(Vec2, DistanceToDegenerateLineIsNotBelowAnything)
{
    const float d = vec2(1.0f, 1.0f).distanceToLine(vec2(5.0f, 5.0f), vec2(5.0f, 5.0f));
    EXPECT_TRUE(std::isnan(d));
    EXPECT_FALSE(d < 1e30f);
}
