#include "math/vec3.h"
#include "math/scalar.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vorlik;

namespace {

constexpr float kHalfPi = kPi / 2.0f;

void expectNear(const vec3& actual, const vec3& expected, float tolerance = 1e-5f)
{
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

// The rotation about a unit axis as any textbook writes it (Rodrigues), for comparison.
vec3 textbookRotation(const vec3& v, const vec3& a, float radians)
{
    const float c = std::cos(radians), s = std::sin(radians), k = 1.0f - c;
    return vec3((a.x * a.x * k + c) * v.x + (a.x * a.y * k - a.z * s) * v.y + (a.x * a.z * k + a.y * s) * v.z,
                (a.x * a.y * k + a.z * s) * v.x + (a.y * a.y * k + c) * v.y + (a.y * a.z * k - a.x * s) * v.z,
                (a.x * a.z * k - a.y * s) * v.x + (a.y * a.z * k + a.x * s) * v.y +
                    (a.z * a.z * k + c) * v.z);
}

} // namespace

TEST(Vec3, ComponentWiseArithmetic)
{
    const vec3 a(1.0f, -2.0f, 4.0f), b(2.0f, 2.0f, -0.5f);
    EXPECT_EQ(a + b, vec3(3.0f, 0.0f, 3.5f));
    EXPECT_EQ(a - b, vec3(-1.0f, -4.0f, 4.5f));
    EXPECT_EQ(a * b, vec3(2.0f, -4.0f, -2.0f));
    EXPECT_EQ(a / b, vec3(0.5f, -1.0f, -8.0f));
    EXPECT_EQ(a * 2.0f, vec3(2.0f, -4.0f, 8.0f));
    EXPECT_EQ(a / 4.0f, vec3(0.25f, -0.5f, 1.0f));
    EXPECT_EQ(a + 1.0f, vec3(2.0f, -1.0f, 5.0f));
    EXPECT_EQ(a - 1.0f, vec3(0.0f, -3.0f, 3.0f));
    EXPECT_EQ(-a, vec3(-1.0f, 2.0f, -4.0f));
    vec3 v = a;
    v += b;
    v -= a;
    v *= 2.0f;
    EXPECT_EQ(v, vec3(4.0f, 4.0f, -1.0f));
}

TEST(Vec3, DivisionByZeroGivesZeroVector)
{
    EXPECT_EQ(vec3(3.0f, 4.0f, 5.0f) / 0.0f, vec3());
    vec3 v(1.0f, 1.0f, 1.0f);
    v /= 0.0f;
    EXPECT_EQ(v, vec3());
}

TEST(Vec3, LengthAndNormalize)
{
    EXPECT_FLOAT_EQ(vec3(2.0f, 3.0f, 6.0f).length(), 7.0f);
    const vec3 n = vec3(2.0f, 3.0f, 6.0f).normalized();
    expectNear(n, vec3(2.0f / 7.0f, 3.0f / 7.0f, 6.0f / 7.0f), 1e-6f);
    vec3 zero;
    zero.normalize();
    EXPECT_EQ(zero, vec3());
}

TEST(Vec3, DotAndCross)
{
    EXPECT_FLOAT_EQ(vec3(1.0f, 2.0f, 3.0f).dot(vec3(4.0f, -5.0f, 6.0f)), 12.0f);
    EXPECT_EQ(vec3(1.0f, 0.0f, 0.0f).cross(vec3(0.0f, 1.0f, 0.0f)), vec3(0.0f, 0.0f, 1.0f));
}

TEST(Vec3, ClampEachComponent)
{
    vec3 v(-5.0f, 0.5f, 9.0f);
    v.clamp(0.0f, 1.0f);
    EXPECT_EQ(v, vec3(0.0f, 0.5f, 1.0f));
}

TEST(Vec3, ClampTestsUpperBoundFirst)
{
    vec3 v(0.0f, 0.3f, 1.0f);
    v.clamp(0.35f, 0.2f);
    EXPECT_EQ(v, vec3(0.35f, 0.2f, 0.2f));
}

TEST(Vec3, RotateAboutXAxisIsExact)
{
    vec3 v(1.0f, 2.0f, 3.0f);
    v.rotate(vec3(1.0f, 0.0f, 0.0f), kHalfPi);
    expectNear(v, vec3(1.0f, -3.0f, 2.0f));
}

TEST(Vec3, RotateAboutYAxisIsExact)
{
    vec3 v(1.0f, 2.0f, 3.0f);
    v.rotate(vec3(0.0f, 1.0f, 0.0f), kHalfPi);
    expectNear(v, vec3(3.0f, 2.0f, -1.0f));
}

TEST(Vec3, RotateAboutZAxisIsExact)
{
    vec3 v(1.0f, 2.0f, 3.0f);
    v.rotate(vec3(0.0f, 0.0f, 1.0f), kHalfPi);
    expectNear(v, vec3(-2.0f, 1.0f, 3.0f));
    for (const vec3 axis : {vec3(1.0f, 0.0f, 0.0f), vec3(0.0f, 1.0f, 0.0f), vec3(0.0f, 0.0f, 1.0f)}) {
        vec3 w(0.3f, -1.2f, 2.5f);
        w.rotate(axis, 0.8f);
        expectNear(w, textbookRotation(vec3(0.3f, -1.2f, 2.5f), axis, 0.8f));
    }
}

TEST(Vec3, RotateAboutGeneralAxisUsesAyAzTermsForXyPairs)
{
    const float h = std::sqrt(0.5f);
    const vec3 axis(h, h, 0.0f);
    const float c = std::cos(kHalfPi), s = std::sin(kHalfPi), k = 1.0f - c;
    // x' takes y through (ay*az*k - az*s), which is 0 here; the textbook has ax*ay*k = k / 2.
    vec3 v(0.0f, 1.0f, 0.0f);
    v.rotate(axis, kHalfPi);
    expectNear(v, vec3(axis.y * axis.z * k - axis.z * s, (1.0f - axis.y * axis.y) * c + axis.y * axis.y,
                       axis.y * axis.z * k + axis.x * s));
    EXPECT_NEAR(v.x, 0.0f, 1e-6f);
    EXPECT_NEAR(textbookRotation(vec3(0.0f, 1.0f, 0.0f), axis, kHalfPi).x, 0.5f, 1e-6f);
    // Likewise y' takes x through (ay*az*k + az*s).
    vec3 w(1.0f, 0.0f, 0.0f);
    w.rotate(axis, kHalfPi);
    EXPECT_NEAR(w.y, 0.0f, 1e-6f);
    EXPECT_NEAR(textbookRotation(vec3(1.0f, 0.0f, 0.0f), axis, kHalfPi).y, 0.5f, 1e-6f);
}

TEST(Vec3, RotateEulerTurnsAboutXThenYThenZ)
{
    vec3 v(1.0f, 2.0f, 3.0f);
    v.rotateEuler(kHalfPi, kHalfPi, kHalfPi);
    // About x: (1, -3, 2); about y: (2, -3, -1); about z: (3, 2, -1).
    expectNear(v, vec3(3.0f, 2.0f, -1.0f));
}
