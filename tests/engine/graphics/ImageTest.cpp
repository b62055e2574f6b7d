#include "graphics/Image.h"

#include <gtest/gtest.h>

using vorlik::Image;

namespace {
// An image whose every pixel holds its own coordinates, so copies can be traced.
Image numbered(int w, int h)
{
    Image image(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) image.setPixel(x, y, 1000u * (y + 1) + x + 1);
    return image;
}
} // namespace

TEST(ImageTest, NewImageIsZeroed)
{
    Image image(3, 2);
    EXPECT_EQ(image.width, 3);
    EXPECT_EQ(image.height, 2);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(image.pixels[i], 0u);
}

TEST(ImageTest, SizesBelowOneAreRaisedToOne)
{
    Image zero(0, 0);
    EXPECT_EQ(zero.width, 1);
    EXPECT_EQ(zero.height, 1);
    Image negative(-5, 4);
    EXPECT_EQ(negative.width, 1);
    EXPECT_EQ(negative.height, 4);
    EXPECT_EQ(negative.getPixel(0, 3), 0u);
}

TEST(ImageTest, PixelsAreStoredRowByRowFromTheTop)
{
    Image image(4, 3);
    image.setPixel(1, 2, 7u);
    EXPECT_EQ(image.pixels[2 * 4 + 1], 7u);
    EXPECT_EQ(image.getPixel(1, 2), 7u);
}

TEST(ImageTest, SetPixelOutsideIsIgnored)
{
    Image image(2, 2);
    image.setPixel(-1, 0, 5u);
    image.setPixel(2, 0, 5u);
    image.setPixel(0, -1, 5u);
    image.setPixel(0, 2, 5u);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(image.pixels[i], 0u);
}

TEST(ImageTest, GetPixelOutsideIsZero)
{
    Image image = numbered(2, 2);
    EXPECT_EQ(image.getPixel(-1, 0), 0u);
    EXPECT_EQ(image.getPixel(2, 0), 0u);
    EXPECT_EQ(image.getPixel(0, -1), 0u);
    EXPECT_EQ(image.getPixel(0, 2), 0u);
    EXPECT_EQ(image.getPixel(1, 1), 2002u);
}

TEST(ImageTest, CopyDuplicatesThePixels)
{
    Image original = numbered(3, 3);
    Image copy(original);
    EXPECT_NE(copy.pixels, original.pixels);
    EXPECT_EQ(copy.getPixel(2, 2), 3003u);
    copy.setPixel(0, 0, 42u);
    EXPECT_EQ(original.getPixel(0, 0), 1001u);
}

TEST(ImageTest, AssignmentDuplicatesThePixelsAndTheSize)
{
    Image original = numbered(3, 2);
    Image target(1, 1);
    target = original;
    EXPECT_EQ(target.width, 3);
    EXPECT_EQ(target.height, 2);
    EXPECT_NE(target.pixels, original.pixels);
    EXPECT_EQ(target.getPixel(2, 1), 2003u);
    target = target;
    EXPECT_EQ(target.getPixel(2, 1), 2003u);
}

TEST(ImageTest, BlitCopiesABlockToItsPlace)
{
    Image src = numbered(4, 4);
    Image dst(4, 4);
    dst.blit(&src, 1, 1, 0, 2, 2, 1);
    EXPECT_EQ(dst.getPixel(0, 2), 2002u);
    EXPECT_EQ(dst.getPixel(1, 2), 2003u);
    EXPECT_EQ(dst.getPixel(2, 2), 0u);
    EXPECT_EQ(dst.getPixel(0, 3), 0u);
    EXPECT_EQ(dst.getPixel(0, 1), 0u);
}

TEST(ImageTest, BlitWithNegativeSizeCopiesTheWholeSource)
{
    Image src = numbered(3, 2);
    Image dst(5, 5);
    dst.blit(&src, 0, 0, 1, 1);
    EXPECT_EQ(dst.getPixel(1, 1), 1001u);
    EXPECT_EQ(dst.getPixel(3, 2), 2003u);
    EXPECT_EQ(dst.getPixel(4, 2), 0u);
    EXPECT_EQ(dst.getPixel(1, 3), 0u);
}

TEST(ImageTest, BlitSkipsSourcePixelsOutsideTheSource)
{
    Image src = numbered(2, 2);
    Image dst(4, 4);
    dst.replace(0u, 9u);
    dst.blit(&src, -1, 1, 0, 0, 3, 2);
    EXPECT_EQ(dst.getPixel(0, 0), 9u);    // source (-1, 1) does not exist: left as it was
    EXPECT_EQ(dst.getPixel(1, 0), 2001u);
    EXPECT_EQ(dst.getPixel(2, 0), 2002u);
    EXPECT_EQ(dst.getPixel(1, 1), 9u);    // source row 2 does not exist
}

TEST(ImageTest, BlitDropsPixelsOutsideTheDestination)
{
    Image src = numbered(3, 3);
    Image dst(2, 2);
    dst.blit(&src, 0, 0, -1, 1);
    EXPECT_EQ(dst.getPixel(0, 1), 1002u);
    EXPECT_EQ(dst.getPixel(1, 1), 1003u);
    EXPECT_EQ(dst.getPixel(0, 0), 0u);
    EXPECT_EQ(dst.getPixel(1, 0), 0u);
}

TEST(ImageTest, BlitOntoItselfDoesNothing)
{
    Image image = numbered(3, 3);
    image.blit(&image, 0, 0, 1, 1);
    EXPECT_EQ(image.getPixel(1, 1), 2002u);
    EXPECT_EQ(image.getPixel(2, 2), 3003u);
}

TEST(ImageTest, BlitFromNullDoesNothing)
{
    Image image = numbered(2, 2);
    image.blit(nullptr, 0, 0, 0, 0);
    EXPECT_EQ(image.getPixel(0, 0), 1001u);
}

TEST(ImageTest, ReplaceChangesEveryMatchingPixelOnly)
{
    Image image(3, 1);
    image.setPixel(0, 0, 5u);
    image.setPixel(1, 0, 6u);
    image.setPixel(2, 0, 5u);
    image.replace(5u, 8u);
    EXPECT_EQ(image.getPixel(0, 0), 8u);
    EXPECT_EQ(image.getPixel(1, 0), 6u);
    EXPECT_EQ(image.getPixel(2, 0), 8u);
}
