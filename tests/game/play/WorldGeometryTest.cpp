#include "play/WorldGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(WorldGeometryTest, TheNineImagesComeInTheirFixedOrder)
{
    vorlik::vec2 images[kWrapImageCount];
    wrapImages(vorlik::vec2(10, 20), images);
    const float expected[kWrapImageCount][2] = {{10, 20},           {4106, 20},          {-4086, 20},
                                                {10, 4116},         {10, -4076},         {4106, 4116},
                                                {4106, -4076},      {-4086, 4116},       {-4086, -4076}};
    for (int i = 0; i < kWrapImageCount; ++i) {
        EXPECT_FLOAT_EQ(images[i].x, expected[i][0]) << "image " << i;
        EXPECT_FLOAT_EQ(images[i].y, expected[i][1]) << "image " << i;
    }
}

TEST(WorldGeometryTest, WrappingBringsAPointIntoTheWorld)
{
    const vorlik::vec2 p = wrapIntoWorld(vorlik::vec2(-10, 8192 + 7));
    EXPECT_FLOAT_EQ(p.x, 4086);
    EXPECT_FLOAT_EQ(p.y, 7);
}

} // namespace
