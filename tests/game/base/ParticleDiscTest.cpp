#include "base/ParticleDisc.h"

#include "graphics/Color.h"
#include "graphics/Image.h"

#include <gtest/gtest.h>
#include <cmath>

using vorlik::Color;
using vorlik::Image;

namespace {

constexpr uint32_t kBlack = 0x000000;
constexpr uint32_t kWhite = 0xffffff;

// The game's discs: 128 x 128, centre (64, 64), black rim, white centre.
class ParticleDisc : public ::testing::Test {
protected:
    void SetUp() override { Color::init(); }

    static void draw(Image& image, int32_t radius) { drawDisc(image, 64, 64, radius, kBlack, kWhite); }

    static void expectRgba(const Image& image, int x, int y, int r, int g, int b, int a)
    {
        const uint32_t p = image.getPixel(x, y);
        EXPECT_EQ(Color::getR(p), r) << x << ", " << y;
        EXPECT_EQ(Color::getG(p), g) << x << ", " << y;
        EXPECT_EQ(Color::getB(p), b) << x << ", " << y;
        EXPECT_EQ(Color::getA(p), a) << x << ", " << y;
    }
};

} // namespace

TEST_F(ParticleDisc, CentreIsOpaqueWhite)
{
    Image image(128, 128);
    draw(image, 60);
    expectRgba(image, 64, 64, 255, 255, 255, 255);
}

TEST_F(ParticleDisc, PixelAtTheRadiusIsOpaqueBlack)
{
    Image image(128, 128);
    draw(image, 60);
    expectRgba(image, 64, 4, 0, 0, 0, 255);
    expectRgba(image, 4, 64, 0, 0, 0, 255);
}

TEST_F(ParticleDisc, PixelBeyondTheRadiusIsUntouched)
{
    Image image(128, 128);
    draw(image, 60);
    EXPECT_EQ(image.getPixel(64, 3), 0u);
    EXPECT_EQ(image.getPixel(3, 64), 0u);
    EXPECT_EQ(image.getPixel(5, 5), 0u); // a corner of the square, outside the circle
}

TEST_F(ParticleDisc, PixelsOutsideTheCircleKeepWhatTheImageHeld)
{
    Image image(128, 128);
    const uint32_t red = Color::pack(255, 0, 0, 255);
    image.replace(0, red);
    draw(image, 60);
    EXPECT_EQ(image.getPixel(64, 3), red);
    EXPECT_EQ(image.getPixel(5, 5), red);
    expectRgba(image, 64, 4, 0, 0, 0, 255);
}

TEST_F(ParticleDisc, FarRowAndColumnOfTheSquareAreNeverWritten)
{
    Image image(128, 128);
    draw(image, 60);
    for (int i = 0; i < 128; ++i) {
        EXPECT_EQ(image.getPixel(i, 124), 0u) << "row 124, column " << i;
        EXPECT_EQ(image.getPixel(124, i), 0u) << "column 124, row " << i;
    }
    // The near edges, at the same distance from the centre, are drawn.
    expectRgba(image, 64, 4, 0, 0, 0, 255);
    expectRgba(image, 4, 64, 0, 0, 0, 255);
}

TEST_F(ParticleDisc, WholeDiscIsOpaqueAndEverythingElseUntouched)
{
    Image image(128, 128);
    draw(image, 60);
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            const bool inSquare = x >= 4 && x < 124 && y >= 4 && y < 124;
            const bool inCircle = std::hypot(float(x - 64), float(y - 64)) <= 60.0f;
            if (inSquare && inCircle)
                ASSERT_EQ(Color::getA(image.getPixel(x, y)), 255) << x << ", " << y;
            else
                ASSERT_EQ(image.getPixel(x, y), 0u) << x << ", " << y;
        }
    }
}

TEST_F(ParticleDisc, BrightnessEasesFromTheCentreToTheRim)
{
    Image image(128, 128);
    draw(image, 60);
    // Halfway out the cosine ease gives half of 255, fraction dropped.
    expectRgba(image, 64, 34, 127, 127, 127, 255);
    // The ease is flat at both ends: one pixel from the centre is still nearly white.
    EXPECT_GE(Color::getR(image.getPixel(64, 63)), 254);
    EXPECT_LE(Color::getR(image.getPixel(64, 5)), 1);
    for (int y = 4; y < 64; ++y)
        EXPECT_LE(Color::getR(image.getPixel(64, y)), Color::getR(image.getPixel(64, y + 1))) << y;
}

TEST_F(ParticleDisc, ColoursAreRrggbbAndEachChannelEasesOnItsOwn)
{
    Image image(16, 16);
    drawDisc(image, 8, 8, 4, 0x102030, 0xf0c080);
    expectRgba(image, 8, 8, 0xf0, 0xc0, 0x80, 255);
    expectRgba(image, 8, 4, 0x10, 0x20, 0x30, 255);
}

TEST_F(ParticleDisc, SmallDiscHasTheSameShapeAtRadius30)
{
    Image image(128, 128);
    draw(image, 30);
    expectRgba(image, 64, 64, 255, 255, 255, 255);
    expectRgba(image, 64, 34, 0, 0, 0, 255);
    EXPECT_EQ(image.getPixel(64, 33), 0u);
    EXPECT_EQ(image.getPixel(64, 94), 0u);
    EXPECT_EQ(image.getPixel(94, 64), 0u);
}

TEST_F(ParticleDisc, DiscRunningOffTheImageIsClipped)
{
    Image image(8, 8);
    drawDisc(image, 0, 0, 6, kBlack, kWhite);
    expectRgba(image, 0, 0, 255, 255, 255, 255);
    EXPECT_EQ(image.getPixel(6, 6), 0u);
}
