#include "graphics/ImageLoader.h"

#include "DisplayTest.h"
#include "PngEncoder.h"
#include "graphics/Color.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <SDL.h>
#include <cstdio>
#include <string>
#include <vector>

using vorlik::Color;
using vorlik::Image;
using vorlik::ImageLoader;
using vorlik::Texture;

namespace {
constexpr uint8_t kMagenta[4] = {255, 0, 255, 255};

// A 3 x 2 picture: magenta, red, magenta / half-transparent green, blue, magenta.
std::vector<uint8_t> samplePixels()
{
    return {255, 0, 255, 255, 255, 0, 0, 255, 255, 0, 255, 255,
            0, 255, 0, 128, 0, 0, 255, 255, 255, 0, 255, 255};
}

std::string writeFile(const char* name, const std::vector<uint8_t>& bytes)
{
    const std::string path = ::testing::TempDir() + name;
    FILE* file = std::fopen(path.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
    return path;
}

uint32_t rgba(int r, int g, int b, int a) { return Color::pack(r, g, b, a); }

class ImageLoaderTest : public DisplayTest {
protected:
    std::vector<uint8_t> png = pngtest::encode(3, 2, samplePixels());
};
} // namespace

TEST_F(ImageLoaderTest, LoadConvertsEveryPixelToTheColorLayout)
{
    Image* image = ImageLoader::load(writeFile("sample.png", png).c_str(), false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->width, 3);
    EXPECT_EQ(image->height, 2);
    EXPECT_EQ(image->getPixel(0, 0), rgba(255, 0, 255, 255));
    EXPECT_EQ(image->getPixel(1, 0), rgba(255, 0, 0, 255));
    EXPECT_EQ(image->getPixel(0, 1), rgba(0, 255, 0, 128));
    EXPECT_EQ(image->getPixel(1, 1), rgba(0, 0, 255, 255));
    EXPECT_EQ(ImageLoader::lastError, 0);
    delete image;
}

TEST_F(ImageLoaderTest, LoadFromMemoryGivesTheSamePixels)
{
    Image* image = ImageLoader::loadFromMemory(png.data(), png.size(), false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(2, 0), rgba(255, 0, 255, 255));
    EXPECT_EQ(image->getPixel(0, 1), rgba(0, 255, 0, 128));
    delete image;
}

TEST_F(ImageLoaderTest, ColorKeyMakesEveryPixelLikeTheTopLeftOneTransparent)
{
    Image* image = ImageLoader::loadFromMemory(png.data(), png.size(), true);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(0, 0), 0u);
    EXPECT_EQ(image->getPixel(2, 0), 0u);
    EXPECT_EQ(image->getPixel(2, 1), 0u);
    EXPECT_EQ(image->getPixel(1, 0), rgba(255, 0, 0, 255));
    EXPECT_EQ(image->getPixel(1, 1), rgba(0, 0, 255, 255));
    delete image;
}

TEST_F(ImageLoaderTest, WithoutColorKeyMagentaStays)
{
    Image* image = ImageLoader::load(writeFile("keyless.png", png).c_str(), false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(2, 1), rgba(kMagenta[0], kMagenta[1], kMagenta[2], kMagenta[3]));
    delete image;
}

TEST_F(ImageLoaderTest, ColorKeyUsesWhateverColourTheTopLeftPixelHas)
{
    std::vector<uint8_t> pixels = samplePixels();
    pixels[0] = 0; pixels[1] = 0; pixels[2] = 255; // top-left becomes blue, like pixel (1, 1)
    const std::vector<uint8_t> bytes = pngtest::encode(3, 2, pixels);
    Image* image = ImageLoader::loadFromMemory(bytes.data(), bytes.size(), true);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(1, 1), 0u);
    EXPECT_EQ(image->getPixel(2, 0), rgba(255, 0, 255, 255));
    delete image;
}

TEST_F(ImageLoaderTest, BmpPicturesLoadOpaque)
{
    SDL_Surface* surface = SDL_CreateRGBSurface(SDL_SWSURFACE, 2, 1, 24, 0xFF, 0xFF00, 0xFF0000, 0);
    auto* p = static_cast<uint8_t*>(surface->pixels);
    p[0] = 10; p[1] = 20; p[2] = 30; p[3] = 200; p[4] = 100; p[5] = 50;
    const std::string path = ::testing::TempDir() + "two.bmp";
    SDL_SaveBMP(surface, path.c_str());
    SDL_FreeSurface(surface);

    Image* image = ImageLoader::load(path.c_str(), false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(0, 0), rgba(10, 20, 30, 255));
    EXPECT_EQ(image->getPixel(1, 0), rgba(200, 100, 50, 255));
    delete image;
}

TEST_F(ImageLoaderTest, MissingFileGivesNullAndLastError2)
{
    EXPECT_EQ(ImageLoader::load("/nonexistent/dir/picture.png", false), nullptr);
    EXPECT_EQ(ImageLoader::lastError, 2);
    EXPECT_EQ(ImageLoader::load(nullptr, false), nullptr);
    EXPECT_EQ(ImageLoader::lastError, 2);
}

TEST_F(ImageLoaderTest, TruncatedPngFileGivesNullAndLastError2)
{
    const std::vector<uint8_t> cut(png.begin(), png.begin() + png.size() / 2);
    EXPECT_EQ(ImageLoader::load(writeFile("cut.png", cut).c_str(), false), nullptr);
    EXPECT_EQ(ImageLoader::lastError, 2);
}

TEST_F(ImageLoaderTest, NonImageFileGivesNullAndLastError2)
{
    const std::string text = "this is not a picture\n";
    const std::vector<uint8_t> bytes(text.begin(), text.end());
    EXPECT_EQ(ImageLoader::load(writeFile("notes.png", bytes).c_str(), false), nullptr);
    EXPECT_EQ(ImageLoader::lastError, 2);
}

TEST_F(ImageLoaderTest, FailedMemoryLoadSetsLastError1)
{
    const std::vector<uint8_t> cut(png.begin(), png.begin() + 40);
    EXPECT_EQ(ImageLoader::loadFromMemory(cut.data(), cut.size(), false), nullptr);
    EXPECT_EQ(ImageLoader::lastError, 1);
    EXPECT_EQ(ImageLoader::loadFromMemory(nullptr, 0, false), nullptr);
    EXPECT_EQ(ImageLoader::lastError, 1);
}

TEST_F(ImageLoaderTest, SuccessfulFileLoadClearsLastError)
{
    ImageLoader::lastError = 1;
    Image* image = ImageLoader::load(writeFile("clear.png", png).c_str(), false);
    EXPECT_EQ(ImageLoader::lastError, 0);
    delete image;
}

TEST_F(ImageLoaderTest, SuccessfulMemoryLoadLeavesLastErrorAsItWas)
{
    ImageLoader::load("/nonexistent/picture.png", false);
    ASSERT_EQ(ImageLoader::lastError, 2);
    Image* image = ImageLoader::loadFromMemory(png.data(), png.size(), false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(ImageLoader::lastError, 2);
    delete image;
}

TEST_F(ImageLoaderTest, LoadTextureMakesATextureOfThePicture)
{
    const uint32_t before = Texture::usedMemory;
    Texture* texture = ImageLoader::loadTexture(writeFile("tex.png", png).c_str(), false);
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ(texture->width, 4);
    EXPECT_EQ(texture->height, 2);
    EXPECT_FLOAT_EQ(texture->uScale, 0.75f);
    EXPECT_FLOAT_EQ(texture->vScale, 1.0f);
    EXPECT_EQ(Texture::usedMemory, before + 4 * 2 * 4);
    delete texture;
    EXPECT_EQ(Texture::usedMemory, before);
}

TEST_F(ImageLoaderTest, FailedTextureLoadsGiveAnEmptyTexture)
{
    const uint32_t before = Texture::usedMemory;
    Texture* missing = ImageLoader::loadTexture("/nonexistent/picture.png", false);
    ASSERT_NE(missing, nullptr);
    EXPECT_EQ(ImageLoader::lastError, 2);
    EXPECT_EQ(missing->width, 0);
    EXPECT_EQ(missing->height, 0);

    const std::vector<uint8_t> cut(png.begin(), png.begin() + 30);
    Texture* truncated = ImageLoader::loadTextureFromMemory(cut.data(), cut.size(), false);
    ASSERT_NE(truncated, nullptr);
    EXPECT_EQ(ImageLoader::lastError, 1);
    EXPECT_EQ(truncated->width, 0);

    EXPECT_EQ(Texture::usedMemory, before);
    delete missing;
    delete truncated;
    EXPECT_EQ(Texture::usedMemory, before);
}

TEST_F(ImageLoaderTest, SurfaceConversionAppliesMasksShiftsAndLosses)
{
    // A 16-bit style layout held in 32-bit pixels: 5 bits of red at bit 11 lose 3 bits.
    SDL_Surface* surface = SDL_CreateRGBSurface(SDL_SWSURFACE, 1, 1, 32, 0xF800, 0x07E0, 0x001F, 0xFF0000);
    ASSERT_NE(surface, nullptr);
    ASSERT_EQ(surface->format->Rloss, 3);
    *static_cast<uint32_t*>(surface->pixels) = (0x1Fu << 11) | (0x20u << 5) | 0x01u | (0x80u << 16);
    Image* image = ImageLoader::fromSurface(surface, false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(0, 0), rgba(0x1F << 3, 0x20 << 2, 0x01 << 3, 0x80));
    delete image;
}

TEST_F(ImageLoaderTest, SurfaceConversionFollowsThePitch)
{
    SDL_Surface* surface = SDL_CreateRGBSurface(SDL_SWSURFACE, 3, 2, 32, 0xFF, 0xFF00, 0xFF0000, 0xFF000000);
    ASSERT_NE(surface, nullptr);
    SDL_FillRect(surface, nullptr, 0);
    auto* row1 = reinterpret_cast<uint32_t*>(static_cast<uint8_t*>(surface->pixels) + surface->pitch);
    row1[2] = 0xFF030201u;
    Image* image = ImageLoader::fromSurface(surface, false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(2, 1), rgba(1, 2, 3, 255));
    EXPECT_EQ(image->getPixel(2, 0), 0u);
    delete image;
}

TEST(ImageLoaderWithoutWindow, LoadsPicturesBeforeAVideoModeIsSet)
{
    if (SDL_GetVideoSurface() != nullptr) GTEST_SKIP() << "a window is already open in this process";
    vorlik::Color::init();
    const std::vector<uint8_t> png = pngtest::encode(3, 2, samplePixels());
    Image* image = ImageLoader::loadFromMemory(png.data(), png.size(), false);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getPixel(1, 0), rgba(255, 0, 0, 255));
    EXPECT_EQ(image->getPixel(0, 1), rgba(0, 255, 0, 128));
    delete image;
}
