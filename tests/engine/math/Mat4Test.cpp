#include "math/mat4.h"
#include "math/scalar.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vorlik;

namespace {

constexpr float kHalfPi = kPi / 2.0f;

mat4 fromColumns(std::initializer_list<float> values)
{
    mat4 r;
    int i = 0;
    for (float v : values) r.m[i++] = v;
    return r;
}

void expectNear(const mat4& actual, const mat4& expected, float tolerance)
{
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(actual.m[i], expected.m[i], tolerance) << "m" << i;
}

void expectNear(const vec4& actual, const vec4& expected, float tolerance = 1e-5f)
{
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

const mat4 kGeneral = fromColumns(
    {2.0f, 0.5f, -1.0f, 0.0f, 1.0f, 3.0f, 0.25f, 0.1f, -0.5f, 1.5f, 4.0f, 0.2f, 7.0f, -3.0f, 2.0f, 1.0f});

} // namespace

TEST(Mat4, DefaultIsIdentity)
{
    const mat4 m;
    for (int i = 0; i < 16; ++i) EXPECT_EQ(m.m[i], (i % 5 == 0) ? 1.0f : 0.0f) << "m" << i;
    EXPECT_EQ(m.data(), m.m);
}

TEST(Mat4, ElementRowColumnIsColumnMajor)
{
    mat4 m;
    m.at(1, 3) = 9.0f;
    EXPECT_EQ(m.m[13], 9.0f);
    EXPECT_EQ(kGeneral.at(2, 0), -1.0f);
}

TEST(Mat4, ProductIsOrdinaryColumnMajorProduct)
{
    const mat4 a = kGeneral;
    mat4 b;
    b.translate(1.0f, 2.0f, 3.0f);
    b.scale(2.0f, 2.0f, 2.0f);
    const mat4 p = a * b;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            float sum = 0.0f;
            for (int k = 0; k < 4; ++k) sum += a.at(r, k) * b.at(k, c);
            EXPECT_FLOAT_EQ(p.at(r, c), sum) << r << "," << c;
        }
    mat4 q = a;
    q *= b;
    EXPECT_EQ(q, p);
}

TEST(Mat4, TransformsVectorByRows)
{
    mat4 t;
    t.translate(1.0f, 2.0f, 3.0f);
    EXPECT_EQ(t * vec4(1.0f, 1.0f, 1.0f, 1.0f), vec4(2.0f, 3.0f, 4.0f, 1.0f));
    EXPECT_EQ(t * vec4(1.0f, 1.0f, 1.0f, 0.0f), vec4(1.0f, 1.0f, 1.0f, 0.0f));
}

TEST(Mat4, ScaleColumnsMultipliesColumnK)
{
    mat4 m = kGeneral;
    m.scaleColumns(vec4(2.0f, 3.0f, 0.5f, -1.0f));
    const float factors[4] = {2.0f, 3.0f, 0.5f, -1.0f};
    for (int c = 0; c < 4; ++c)
        for (int r = 0; r < 4; ++r) EXPECT_EQ(m.at(r, c), kGeneral.at(r, c) * factors[c]);
}

TEST(Mat4, InverseTimesItselfIsIdentity)
{
    mat4 inv = kGeneral;
    inv.invert();
    expectNear(inv * kGeneral, mat4(), 1e-5f);
    expectNear(kGeneral * inv, mat4(), 1e-5f);
}

TEST(Mat4, InverseOfSingularLeavesUnchanged)
{
    // A zero column makes the determinant exactly 0.
    mat4 m = kGeneral;
    for (int r = 0; r < 4; ++r) m.at(r, 2) = 0.0f;
    const mat4 before = m;
    m.invert();
    EXPECT_EQ(m, before);
}

TEST(Mat4, InverseDividesByTheDeterminant)
{
    mat4 m;
    m.scale(2.0f, 4.0f, 8.0f);
    m.translate(1.0f, -2.0f, 3.0f);
    m.invert();
    mat4 expected;
    expected.translate(-1.0f, 2.0f, -3.0f);
    expected.scale(0.5f, 0.25f, 0.125f);
    expectNear(m, expected, 1e-6f);
}

TEST(Mat4, FrustumTakesTopBeforeBottom)
{
    const mat4 f = mat4::frustum(-2.0f, 4.0f, 3.0f, -1.0f, 1.0f, 10.0f);
    mat4 expected = mat4::zero();
    expected.m[0] = 2.0f * 1.0f / 6.0f;
    expected.m[5] = 2.0f * 1.0f / 4.0f;
    expected.m[8] = 2.0f / 6.0f;
    expected.m[9] = 2.0f / 4.0f;
    expected.m[10] = -11.0f / 9.0f;
    expected.m[11] = -1.0f;
    expected.m[14] = -20.0f / 9.0f;
    expectNear(f, expected, 1e-6f);
    EXPECT_EQ(f.m[15], 0.0f);
}

TEST(Mat4, FrustumFlipsYWhenTopIsBelowBottom)
{
    const mat4 f = mat4::frustum(-320.0f, 320.0f, -180.0f, 180.0f, 1.0f, 10.0f);
    EXPECT_FLOAT_EQ(f.m[5], -2.0f / 360.0f);
}

TEST(Mat4, OrthoMatchesGlOrtho)
{
    const mat4 o = mat4::ortho(-640.0f, 640.0f, 360.0f, -360.0f, -10.0f, 10.0f);
    mat4 expected;
    expected.m[0] = 2.0f / 1280.0f;
    expected.m[5] = 2.0f / 720.0f;
    expected.m[10] = -2.0f / 20.0f;
    expected.m[12] = 0.0f;
    expected.m[13] = 0.0f;
    expected.m[14] = 0.0f;
    expectNear(o, expected, 1e-7f);
    const vec4 corner = o * vec4(640.0f, 360.0f, 0.0f, 1.0f);
    EXPECT_FLOAT_EQ(corner.x, 1.0f);
    EXPECT_FLOAT_EQ(corner.y, 1.0f);
}

TEST(Mat4, OrthoOfEmptyRangesWidensEachByOne)
{
    EXPECT_EQ(mat4::ortho(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f),
              mat4::ortho(0.0f, 1.0f, 0.0f, 1.0f, 0.0f, 1.0f));
    const mat4 o = mat4::ortho(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(o.m[0], 2.0f);
    EXPECT_FLOAT_EQ(o.m[5], -2.0f);
    EXPECT_FLOAT_EQ(o.m[10], -2.0f);
    EXPECT_FLOAT_EQ(o.m[12], -1.0f);
    EXPECT_FLOAT_EQ(o.m[13], 1.0f);
    EXPECT_FLOAT_EQ(o.m[14], -1.0f);
}

TEST(Mat4, RotateMatchesTextbookAboutAxes)
{
    mat4 r;
    r.rotate(vec3(0.0f, 0.0f, 1.0f), kHalfPi);
    expectNear(r * vec4(1.0f, 0.0f, 0.0f, 1.0f), vec4(0.0f, 1.0f, 0.0f, 1.0f));
    const float h = std::sqrt(0.5f);
    mat4 g;
    g.rotate(vec3(h, h, 0.0f), kHalfPi);
    // A general axis turns (0, 1, 0) to (1/2, 1/2, h), as the textbook rotation does.
    expectNear(g * vec4(0.0f, 1.0f, 0.0f, 0.0f), vec4(0.5f, 0.5f, h, 0.0f));
}

TEST(Mat4, RotateEulerTurnsPointAboutXThenYThenZ)
{
    mat4 r;
    r.rotateEuler(kHalfPi, kHalfPi, kHalfPi);
    expectNear(r * vec4(1.0f, 2.0f, 3.0f, 1.0f), vec4(3.0f, 2.0f, -1.0f, 1.0f));
}

TEST(Mat4, TranslateAndScaleComposeOnTheRight)
{
    mat4 m;
    m.translate(5.0f, 0.0f, 0.0f);
    m.scale(2.0f, 2.0f, 2.0f);
    EXPECT_EQ(m * vec4(1.0f, 1.0f, 1.0f, 1.0f), vec4(7.0f, 2.0f, 2.0f, 1.0f));
}

TEST(Mat4, PerspectiveIsSymmetricFrustum)
{
    const float halfHeight = 0.1f * std::tan(degreesToRadians(45.0f) / 2.0f);
    expectNear(mat4::perspective(45.0f, 2.0f, 0.1f, 100.0f),
               mat4::frustum(-2.0f * halfHeight, 2.0f * halfHeight, halfHeight, -halfHeight, 0.1f, 100.0f),
               1e-5f);
}

TEST(Mat4, LookAtPutsTargetOnNegativeZ)
{
    const mat4 v = mat4::lookAt(vec3(0.0f, 0.0f, 5.0f), vec3(0.0f, 0.0f, 0.0f), vec3(0.0f, 1.0f, 0.0f));
    expectNear(v * vec4(0.0f, 0.0f, 0.0f, 1.0f), vec4(0.0f, 0.0f, -5.0f, 1.0f));
    const mat4 side = mat4::lookAt(vec3(3.0f, 0.0f, 0.0f), vec3(0.0f, 0.0f, 0.0f), vec3(0.0f, 1.0f, 0.0f));
    expectNear(side * vec4(0.0f, 1.0f, 0.0f, 1.0f), vec4(0.0f, 1.0f, -3.0f, 1.0f));
}
