#include "math/mat2.h"
#include "math/scalar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

using namespace vorlik;

namespace {

constexpr float kHalfPi = kPi / 2.0f;

void expectNear(const mat2& actual, const mat2& expected, float tolerance = 1e-6f)
{
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(actual.data()[i], expected.data()[i], tolerance) << "m" << i;
}

} // namespace

TEST(Mat2, DefaultIsIdentity) { EXPECT_EQ(mat2(), mat2(1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f)); }

TEST(Mat2, DataIsSixFloatsInColumnOrder)
{
    const mat2 t(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f);
    const float expected[6] = {1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f};
    EXPECT_EQ(std::memcmp(t.data(), expected, sizeof expected), 0);
}

TEST(Mat2, MapsPointThroughColumnsAndTranslation)
{
    const mat2 t(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f);
    // (m0*x + m2*y + m4, m1*x + m3*y + m5)
    EXPECT_EQ(t * vec2(10.0f, 100.0f), vec2(10.0f + 300.0f + 5.0f, 20.0f + 400.0f + 6.0f));
}

TEST(Mat2, ProductAppliesRightOperandFirst)
{
    const mat2 a(2.0f, 0.0f, 0.0f, 3.0f, 1.0f, 1.0f);
    const mat2 b(0.0f, 1.0f, -1.0f, 0.0f, 4.0f, 5.0f);
    const vec2 p(1.5f, -2.0f);
    const vec2 viaProduct = (a * b) * p;
    const vec2 stepwise = a * (b * p);
    EXPECT_FLOAT_EQ(viaProduct.x, stepwise.x);
    EXPECT_FLOAT_EQ(viaProduct.y, stepwise.y);
    mat2 c = a;
    c *= b;
    EXPECT_EQ(c, a * b);
}

TEST(Mat2, TranslateRotateScaleComposeOnTheRight)
{
    mat2 t;
    t.translate(10.0f, 20.0f);
    t.rotate(kHalfPi);
    t.scale(2.0f);
    // The point is scaled first, then rotated, then moved.
    const vec2 p = t * vec2(1.0f, 0.0f);
    EXPECT_NEAR(p.x, 10.0f, 1e-5f);
    EXPECT_NEAR(p.y, 22.0f, 1e-5f);
    mat2 u;
    u.translate(vec2(1.0f, 2.0f));
    u.scale(3.0f, 4.0f);
    EXPECT_EQ(u, mat2(3.0f, 0.0f, 0.0f, 4.0f, 1.0f, 2.0f));
}

TEST(Mat2, ToMat4PlacesColumnsAndTranslation)
{
    const mat4 m = mat2(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f).toMat4();
    const float expected[16] = {1.0f, 2.0f, 0.0f, 0.0f, 3.0f, 4.0f, 0.0f, 0.0f,
                                0.0f, 0.0f, 1.0f, 0.0f, 5.0f, 6.0f, 0.0f, 1.0f};
    for (int i = 0; i < 16; ++i) EXPECT_EQ(m.m[i], expected[i]) << "m" << i;
}

TEST(Mat2, NormalizeNormalisesTranslationPairToo)
{
    mat2 t(3.0f, 4.0f, 0.0f, 2.0f, 6.0f, 8.0f);
    t.normalize();
    expectNear(t, mat2(0.6f, 0.8f, 0.0f, 1.0f, 0.6f, 0.8f));
}

TEST(Mat2, NormalizeLeavesZeroPairs)
{
    mat2 t(0.0f, 0.0f, 0.0f, 5.0f, 0.0f, 0.0f);
    t.normalize();
    EXPECT_EQ(t, mat2(0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f));
}

TEST(Mat2, InvertOfNinetyDegreeRotationIsTheSameRotation)
{
    mat2 r;
    r.rotate(kHalfPi);
    const mat2 before = r;
    r.invert();
    expectNear(r, before);
    EXPECT_NEAR(r.m1, 1.0f, 1e-6f);
    EXPECT_NEAR(r.m2, -1.0f, 1e-6f);
}

TEST(Mat2, InvertSwapsOffDiagonalsAndNegatesTranslation)
{
    mat2 t(2.0f, 3.0f, 5.0f, 7.0f, 11.0f, 13.0f);
    t.invert();
    // det = 2*7 - 3*5 = -1
    EXPECT_EQ(t, mat2(-7.0f, 5.0f, 3.0f, -2.0f, -11.0f, -13.0f));
}

TEST(Mat2, InvertIsExactForScalingAndTranslation)
{
    mat2 s(4.0f, 0.0f, 0.0f, 0.5f, 0.0f, 0.0f);
    s.invert();
    EXPECT_EQ(s, mat2(0.25f, 0.0f, 0.0f, 2.0f, 0.0f, 0.0f));
    mat2 t;
    t.translate(3.0f, -9.0f);
    t.invert();
    EXPECT_EQ(t * vec2(3.0f, -9.0f), vec2(0.0f, 0.0f));
}

TEST(Mat2, InvertOfSingularLeavesUnchanged)
{
    mat2 t(1.0f, 2.0f, 2.0f, 4.0f, 5.0f, 6.0f);
    t.invert();
    EXPECT_EQ(t, mat2(1.0f, 2.0f, 2.0f, 4.0f, 5.0f, 6.0f));
}
