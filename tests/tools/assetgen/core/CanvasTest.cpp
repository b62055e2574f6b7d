#include "core/Canvas.h"

#include <gtest/gtest.h>

using namespace assetgen;

TEST(Canvas, LightBecomesTheLeastAlphaThatAddsItBack)
{
    Canvas c(1, 1);
    c.addLight(0, 0, {0.2f, 0.4f, 0.8f});
    c.lightToAlpha();
    Picture p = toPicture(c);
    // Under (source alpha, one) blending the picture adds colour x alpha = the light.
    const uint8_t* t = p.texel(0, 0);
    EXPECT_NEAR(t[3], 204, 1);
    EXPECT_NEAR(t[0] * t[3] / 255.0, 0.2 * 255, 2);
    EXPECT_NEAR(t[2] * t[3] / 255.0, 0.8 * 255, 2);
}

TEST(Canvas, TransparentTexelsTakeTheirNeighboursColour)
{
    Canvas c(3, 1);
    c.at(0, 0) = solid({1.0f, 0.5f, 0.0f}, 1.0f);
    Picture p = toPicture(c);
    EXPECT_EQ(p.texel(1, 0)[3], 0);
    EXPECT_EQ(p.texel(1, 0)[0], 255);
    EXPECT_EQ(p.texel(2, 0)[1], 128);
}
