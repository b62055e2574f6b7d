#include "math/vec4.h"

#include <gtest/gtest.h>

using namespace vorlik;

TEST(Vec4, ComponentWiseArithmetic)
{
    const vec4 a(1.0f, 2.0f, 3.0f, 4.0f), b(2.0f, 0.5f, -1.0f, 4.0f);
    EXPECT_EQ(a + b, vec4(3.0f, 2.5f, 2.0f, 8.0f));
    EXPECT_EQ(a - b, vec4(-1.0f, 1.5f, 4.0f, 0.0f));
    EXPECT_EQ(a * b, vec4(2.0f, 1.0f, -3.0f, 16.0f));
    EXPECT_EQ(a / b, vec4(0.5f, 4.0f, -3.0f, 1.0f));
    EXPECT_EQ(a * 0.5f, vec4(0.5f, 1.0f, 1.5f, 2.0f));
    EXPECT_EQ(a / 2.0f, vec4(0.5f, 1.0f, 1.5f, 2.0f));
    EXPECT_EQ(a + 1.0f, vec4(2.0f, 3.0f, 4.0f, 5.0f));
    EXPECT_EQ(a - 1.0f, vec4(0.0f, 1.0f, 2.0f, 3.0f));
    EXPECT_EQ(-a, vec4(-1.0f, -2.0f, -3.0f, -4.0f));
}

TEST(Vec4, DivisionByZeroGivesZeroVector)
{
    EXPECT_EQ(vec4(1.0f, 2.0f, 3.0f, 4.0f) / 0.0f, vec4());
    vec4 v(1.0f, 1.0f, 1.0f, 1.0f);
    v /= 0.0f;
    EXPECT_EQ(v, vec4());
}

TEST(Vec4, IndexReadsAndWritesComponents)
{
    vec4 v(1.0f, 2.0f, 3.0f, 4.0f);
    EXPECT_EQ(v[0], 1.0f);
    EXPECT_EQ(v[1], 2.0f);
    EXPECT_EQ(v[2], 3.0f);
    EXPECT_EQ(v[3], 4.0f);
    v[2] = 7.0f;
    EXPECT_EQ(v.z, 7.0f);
}

TEST(Vec4, LengthAndNormalize)
{
    EXPECT_FLOAT_EQ(vec4(1.0f, 1.0f, 1.0f, 1.0f).length(), 2.0f);
    EXPECT_EQ(vec4(0.0f, 0.0f, 0.0f, 5.0f).normalized(), vec4(0.0f, 0.0f, 0.0f, 1.0f));
    vec4 zero;
    zero.normalize();
    EXPECT_EQ(zero, vec4());
    EXPECT_FLOAT_EQ(vec4(1.0f, 2.0f, 3.0f, 4.0f).dot(vec4(1.0f, 1.0f, 1.0f, 1.0f)), 10.0f);
}
