#include "scene/Sprite.h"

#include "LeafDrawTest.h"
#include "PngEncoder.h"
#include "graphics/Color.h"
#include "graphics/Image.h"
#include "graphics/ImageLoader.h"
#include "graphics/Texture.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

using vorlik::Color;
using vorlik::Image;
using vorlik::ImageLoader;
using vorlik::Texture;

namespace {
void expectFrame(const Sprite::FrameRect& f, float u0, float v0, float u1, float v1)
{
    EXPECT_FLOAT_EQ(f.u0, u0);
    EXPECT_FLOAT_EQ(f.v0, v0);
    EXPECT_FLOAT_EQ(f.u1, u1);
    EXPECT_FLOAT_EQ(f.v1, v1);
}

// An image filled with one packed colour.
std::unique_ptr<Image> filled(int w, int h, uint32_t color)
{
    auto image = std::make_unique<Image>(w, h);
    image->replace(0, color);
    return image;
}

class SpriteTest : public LeafDrawTest {
protected:
    void SetUp() override
    {
        LeafDrawTest::SetUp();
        Color::init();
    }
};
} // namespace

TEST(SpriteFrames, UnanimatedSpriteShowsTheWholeUsedPart)
{
    expectFrame(Sprite::frameRect(0.75f, 0.5f, false, 4, 2, 5), 0.0f, 0.0f, 0.75f, 0.5f);
}

TEST(SpriteFrames, Frame5Of4ColumnsAnd2RowsIsColumn1Row1)
{
    const float U = 0.8f, V = 0.6f;
    expectFrame(Sprite::frameRect(U, V, true, 4, 2, 5), U / 4, V / 2, U / 2, V);
}

TEST(SpriteFrames, FramesRunAlongARowBeforeTheNextRow)
{
    expectFrame(Sprite::frameRect(1.0f, 1.0f, true, 4, 2, 3), 0.75f, 0.0f, 1.0f, 0.5f);
    expectFrame(Sprite::frameRect(1.0f, 1.0f, true, 4, 2, 4), 0.0f, 0.5f, 0.25f, 1.0f);
}

TEST(SpriteFrames, GridSizeBelowOneCountsAsOne)
{
    expectFrame(Sprite::frameRect(1.0f, 1.0f, true, 0, -3, 0), 0.0f, 0.0f, 1.0f, 1.0f);
}

TEST(SpriteShape, DefaultsOfTheGameConstructor)
{
    Sprite sprite(nullptr, 40.0f, 20.0f);
    EXPECT_EQ(sprite.texture, nullptr);
    EXPECT_EQ(sprite.glowTexture, nullptr);
    EXPECT_EQ(sprite.animated, 0);
    EXPECT_EQ(sprite.columns, 1);
    EXPECT_EQ(sprite.rows, 1);
    EXPECT_EQ(sprite.frame, 0);
    EXPECT_TRUE(sprite.isVisible());
    EXPECT_FLOAT_EQ(sprite.size.x, 40.0f);
    EXPECT_FLOAT_EQ(sprite.size.y, 20.0f);
}

TEST(SpriteShape, OwnSizeOfASpriteWithoutTextureIsZero)
{
    Sprite sprite(nullptr, -1.0f, -1.0f);
    EXPECT_FLOAT_EQ(sprite.size.x, 0.0f);
    EXPECT_FLOAT_EQ(sprite.size.y, 0.0f);
}

TEST(SpriteShape, QuadSpansAnchorPlusMinusHalfTheSizeFromTopLeftClockwise)
{
    Sprite sprite(nullptr, 40.0f, 20.0f);
    sprite.setAnchor(5.0f, -3.0f);
    const Sprite::Quad q = sprite.quad();
    const float expected[8] = {-15, -13, 25, -13, 25, 7, -15, 7};
    for (int i = 0; i < 8; ++i) EXPECT_FLOAT_EQ(q.positions[i], expected[i]) << i;
}

TEST(SpriteShape, QuadMapsTheFrameTopToTheQuadTop)
{
    Sprite sprite(nullptr, 10.0f, 10.0f);
    sprite.animated = 1;
    sprite.columns = 4;
    sprite.rows = 2;
    sprite.frame = 5;
    const Sprite::Quad q = sprite.quad();
    const float expected[8] = {0.25f, 0.5f, 0.5f, 0.5f, 0.5f, 1.0f, 0.25f, 1.0f};
    for (int i = 0; i < 8; ++i) EXPECT_FLOAT_EQ(q.texCoords[i], expected[i]) << i;
}

TEST_F(SpriteTest, WidthMinusOneOnA100PixelImageIn128TexelsIs100)
{
    Image image(100, 50);
    Texture texture(&image);
    ASSERT_EQ(texture.width, 128);
    Sprite sprite(&texture, -1.0f, -1.0f);
    EXPECT_FLOAT_EQ(sprite.size.x, 100.0f);
    EXPECT_FLOAT_EQ(sprite.size.y, 50.0f);
    const Sprite::Quad q = sprite.quad();
    EXPECT_FLOAT_EQ(q.texCoords[2], 0.78125f);
    EXPECT_FLOAT_EQ(q.texCoords[5], 0.78125f);
}

TEST_F(SpriteTest, ExplicitSizeIsKeptAndMinusOneAppliesPerSide)
{
    Image image(100, 50);
    Texture texture(&image);
    Sprite sprite(&texture, 30.0f, -1.0f);
    EXPECT_FLOAT_EQ(sprite.size.x, 30.0f);
    EXPECT_FLOAT_EQ(sprite.size.y, 50.0f);
}

TEST_F(SpriteTest, GlowConstructorKeepsTheGlowTexture)
{
    Image image(16, 16);
    Texture texture(&image), glow(&image);
    Sprite sprite(&texture, &glow, -1.0f, 8.0f);
    EXPECT_EQ(sprite.texture, &texture);
    EXPECT_EQ(sprite.glowTexture, &glow);
    EXPECT_FLOAT_EQ(sprite.size.x, 16.0f);
    EXPECT_FLOAT_EQ(sprite.size.y, 8.0f);
}

TEST_F(SpriteTest, PictureIsDrawnUprightInItsRectangle)
{
    Image image(4, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) image.setPixel(x, y, y < 2 ? Color::pack(255, 0, 0, 255) : Color::pack(0, 0, 255, 255));
    Texture texture(&image);
    Sprite sprite(&texture, 100.0f, 100.0f);
    sprite.setAnchor(ANCHOR_TOP_LEFT); // position at the top-left corner
    sprite.position.x = 200.0f;
    sprite.position.y = 200.0f;
    drawAt(sprite, stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(250, 225), 255, 0, 0)) << at(250, 225);
    EXPECT_TRUE(pixelprobe::near(at(250, 275), 0, 0, 255)) << at(250, 275);
    EXPECT_TRUE(pixelprobe::near(at(195, 250), 0, 0, 0));
    EXPECT_TRUE(pixelprobe::near(at(305, 250), 0, 0, 0));
    EXPECT_TRUE(pixelprobe::near(at(250, 305), 0, 0, 0));
}

TEST_F(SpriteTest, VerticesTakeTheInheritedColour)
{
    auto image = filled(8, 8, Color::pack(255, 255, 255, 255));
    Texture texture(image.get());
    Sprite sprite(&texture, 50.0f, 50.0f);
    sprite.position.x = 100.0f;
    sprite.position.y = 100.0f;
    drawAt(sprite, stateWithColor(255, 128, 0, 255));
    EXPECT_TRUE(pixelprobe::near(at(100, 100), 255, 128, 0)) << at(100, 100);
}

TEST_F(SpriteTest, AnimatedSpriteShowsOnlyItsCurrentFrame)
{
    Image image(8, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x) image.setPixel(x, y, x < 4 ? Color::pack(255, 0, 0, 255) : Color::pack(0, 255, 0, 255));
    Texture texture(&image);
    Sprite sprite(&texture, 60.0f, 60.0f);
    sprite.animated = 1;
    sprite.columns = 2;
    sprite.frame = 1;
    sprite.position.x = 300.0f;
    sprite.position.y = 300.0f;
    drawAt(sprite, stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(300, 300), 0, 255, 0)) << at(300, 300);
    EXPECT_TRUE(pixelprobe::near(at(280, 300), 0, 255, 0)) << at(280, 300);
}

TEST_F(SpriteTest, SpriteWithoutTextureDrawsNothing)
{
    Sprite sprite(nullptr, 50.0f, 50.0f);
    sprite.position.x = 100.0f;
    sprite.position.y = 100.0f;
    drawAt(sprite, stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(100, 100), 0, 0, 0));
}

TEST_F(SpriteTest, FailedPictureLoadsGiveEmptyTexturesThatDrawNothing)
{
    auto pixels = std::vector<uint8_t>(4 * 4 * 4, 255);
    const std::vector<uint8_t> png = pngtest::encode(4, 4, pixels);
    const std::string dir = ::testing::TempDir();
    const std::string truncated = dir + "sprite_truncated.png", notPicture = dir + "sprite_notes.png";
    FILE* file = std::fopen(truncated.c_str(), "wb");
    std::fwrite(png.data(), 1, png.size() / 2, file);
    std::fclose(file);
    file = std::fopen(notPicture.c_str(), "wb");
    std::fputs("plain text, not a picture", file);
    std::fclose(file);

    for (const std::string& path : {dir + "sprite_missing.png", truncated, notPicture}) {
        ImageLoader::lastError = 0;
        std::unique_ptr<Texture> texture(ImageLoader::loadTexture(path.c_str(), false));
        EXPECT_EQ(ImageLoader::lastError, 2) << path;
        EXPECT_EQ(texture->width, 0) << path;
        Sprite sprite(texture.get(), 64.0f, 64.0f);
        sprite.position.x = 100.0f;
        sprite.position.y = 100.0f;
        drawAt(sprite, stateWithColor(255, 255, 255, 255));
        EXPECT_TRUE(pixelprobe::near(at(100, 100), 0, 0, 0)) << path << " " << at(100, 100);
    }
}

TEST_F(SpriteTest, NormalBlendingMixesByAlpha)
{
    glClearColor(100 / 255.0f, 100 / 255.0f, 100 / 255.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    auto image = filled(8, 8, Color::pack(255, 255, 255, 255));
    Texture texture(image.get());
    Sprite sprite(&texture, 50.0f, 50.0f);
    sprite.position.x = 100.0f;
    sprite.position.y = 100.0f;
    setBlend(GL_ONE_MINUS_SRC_ALPHA);
    drawAt(sprite, stateWithColor(200, 50, 0, 128));
    // source x 128/255 + destination x 127/255
    EXPECT_TRUE(pixelprobe::near(at(100, 100), 150, 75, 50)) << at(100, 100);
}

TEST_F(SpriteTest, AdditiveBlendingAddsTheWeightedSource)
{
    glClearColor(100 / 255.0f, 100 / 255.0f, 100 / 255.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    auto image = filled(8, 8, Color::pack(255, 255, 255, 255));
    Texture texture(image.get());
    Sprite sprite(&texture, 50.0f, 50.0f);
    sprite.position.x = 100.0f;
    sprite.position.y = 100.0f;
    setBlend(GL_ONE);
    drawAt(sprite, stateWithColor(200, 50, 0, 128));
    // source x 128/255 + destination
    EXPECT_TRUE(pixelprobe::near(at(100, 100), 200, 125, 100)) << at(100, 100);
    drawAt(sprite, stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(100, 100), 255, 255, 255)) << at(100, 100);
}

TEST_F(SpriteTest, TransparentTexelsLeaveTheBackground)
{
    Image image(8, 8); // all zero: transparent black
    image.setPixel(0, 0, Color::pack(255, 255, 255, 255));
    Texture texture(&image);
    Sprite sprite(&texture, 80.0f, 80.0f);
    sprite.position.x = 100.0f;
    sprite.position.y = 100.0f;
    glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    drawAt(sprite, stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(110, 110), 0, 0, 255)) << at(110, 110);
}

TEST_F(SpriteTest, DrawsEvenWhenCullingAndDepthTestingWereLeftOn)
{
    auto image = filled(8, 8, Color::pack(255, 255, 255, 255));
    Texture texture(image.get());
    Sprite sprite(&texture, 50.0f, 50.0f);
    sprite.position.x = 100.0f;
    sprite.position.y = 100.0f;
    glEnable(GL_CULL_FACE); // the quad winds clockwise on a y-down screen: a back face
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_NEVER);
    drawAt(sprite, stateWithColor(255, 255, 255, 255));
    glDepthFunc(GL_LESS);
    EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
    EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_TRUE(pixelprobe::near(at(100, 100), 255, 255, 255)) << at(100, 100);
}

TEST_F(SpriteTest, DrawUsesTheTexturedProgramWithItsSamplerAndTheTextureOnUnitZero)
{
    auto image = filled(8, 8, Color::pack(255, 255, 255, 255));
    Texture texture(image.get());
    Sprite sprite(&texture, 50.0f, 50.0f);
    vorlik::ShaderProgram* program = Shaders::texture_shader_fixed;
    program->bind();
    program->setUniform("texture", 3);
    vorlik::ShaderProgram::unbind();
    glActiveTexture(GL_TEXTURE1);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);

    drawAt(sprite, stateWithColor(255, 255, 255, 255));

    GLint current = 0, sampler = -1, active = 0, bound = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &current);
    glGetUniformiv(program->id, program->uniform("texture"), &sampler);
    glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(static_cast<GLuint>(current), program->id);
    EXPECT_EQ(sampler, 0);
    EXPECT_EQ(active, GL_TEXTURE0);
    EXPECT_EQ(static_cast<GLuint>(bound), texture.id);
    EXPECT_EQ(texture.unit, static_cast<uint32_t>(GL_TEXTURE0));
    EXPECT_TRUE(glIsEnabled(GL_VERTEX_ARRAY));
    EXPECT_TRUE(glIsEnabled(GL_COLOR_ARRAY));
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
}
