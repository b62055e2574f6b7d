#include "graphics/Color.h"

#include <gtest/gtest.h>

using vorlik::Color;

namespace {
// Captured during static initialisation, before any test can call Color::init.
const uint32_t kInitialMasks[4] = {Color::rmask, Color::gmask, Color::bmask, Color::amask};
const uint8_t kInitialShifts[4] = {Color::rshift, Color::gshift, Color::bshift, Color::ashift};

class ColorTest : public ::testing::Test {
protected:
    void SetUp() override { Color::init(); }
};
} // namespace

TEST(ColorInitialLayout, MasksPutRedInTheTopByteWhileShiftsPutItInTheLowByte)
{
    EXPECT_EQ(kInitialMasks[0], 0xFF000000u);
    EXPECT_EQ(kInitialMasks[1], 0x00FF0000u);
    EXPECT_EQ(kInitialMasks[2], 0x0000FF00u);
    EXPECT_EQ(kInitialMasks[3], 0x000000FFu);
    EXPECT_EQ(kInitialShifts[0], 0);
    EXPECT_EQ(kInitialShifts[1], 8);
    EXPECT_EQ(kInitialShifts[2], 16);
    EXPECT_EQ(kInitialShifts[3], 24);
}

TEST_F(ColorTest, InitLaysOutRedGreenBlueAlphaFromTheLowByteUp)
{
    EXPECT_EQ(Color::rmask, 0x000000FFu);
    EXPECT_EQ(Color::gmask, 0x0000FF00u);
    EXPECT_EQ(Color::bmask, 0x00FF0000u);
    EXPECT_EQ(Color::amask, 0xFF000000u);
    EXPECT_EQ(Color::rshift, 0);
    EXPECT_EQ(Color::gshift, 8);
    EXPECT_EQ(Color::bshift, 16);
    EXPECT_EQ(Color::ashift, 24);
}

TEST_F(ColorTest, PackedPixelIsRgbaBytesInMemoryOrder)
{
    const uint32_t c = Color::pack(0x11, 0x22, 0x33, 0x44);
    const auto* bytes = reinterpret_cast<const uint8_t*>(&c);
    EXPECT_EQ(bytes[0], 0x11);
    EXPECT_EQ(bytes[1], 0x22);
    EXPECT_EQ(bytes[2], 0x33);
    EXPECT_EQ(bytes[3], 0x44);
}

TEST_F(ColorTest, PackClampsEachComponentTo255)
{
    EXPECT_EQ(Color::pack(256, 1000, 65535, 255), 0xFFFFFFFFu);
    EXPECT_EQ(Color::pack(300, 0, 0, 0), 0x000000FFu);
    EXPECT_EQ(Color::pack(0, 0, 0, 256), 0xFF000000u);
}

TEST_F(ColorTest, GettersReturnEachChannel)
{
    const uint32_t c = Color::pack(10, 20, 30, 40);
    EXPECT_EQ(Color::getR(c), 10);
    EXPECT_EQ(Color::getG(c), 20);
    EXPECT_EQ(Color::getB(c), 30);
    EXPECT_EQ(Color::getA(c), 40);
}

TEST_F(ColorTest, SettersReplaceOneChannelAndKeepTheOthers)
{
    const uint32_t c = Color::pack(10, 20, 30, 40);
    EXPECT_EQ(Color::setR(c, 99), Color::pack(99, 20, 30, 40));
    EXPECT_EQ(Color::setG(c, 99), Color::pack(10, 99, 30, 40));
    EXPECT_EQ(Color::setB(c, 99), Color::pack(10, 20, 99, 40));
    EXPECT_EQ(Color::setA(c, 99), Color::pack(10, 20, 30, 99));
}

TEST_F(ColorTest, SettersClampTo255)
{
    const uint32_t c = Color::pack(1, 2, 3, 4);
    EXPECT_EQ(Color::setR(c, 4000), Color::pack(255, 2, 3, 4));
    EXPECT_EQ(Color::setA(c, 256), Color::pack(1, 2, 3, 255));
}

TEST_F(ColorTest, SetterClearsTheOldChannelBitsFirst)
{
    EXPECT_EQ(Color::setG(0xFFFFFFFFu, 0), 0xFFFF00FFu);
}
