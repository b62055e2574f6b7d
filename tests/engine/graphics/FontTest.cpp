#include "graphics/Font.h"

#include "DisplayTest.h"
#include "PixelProbe.h"
#include "graphics/Color.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <GL/glext.h>

using vorlik::Color;
using vorlik::Font;
using vorlik::Image;
using vorlik::Texture;

namespace {
constexpr int kCell = 4; // pixels per glyph cell in the test font

// A 64 x 64 font: 'A' has a red top half and a blue bottom half, code 200 is green, every
// other cell is transparent.
Image* testFontImage()
{
    Color::init();
    auto* image = new Image(16 * kCell, 16 * kCell);
    for (int y = 0; y < kCell; ++y) {
        for (int x = 0; x < kCell; ++x) {
            const uint32_t top = Color::pack(255, 0, 0, 255), bottom = Color::pack(0, 0, 255, 255);
            image->setPixel(('A' % 16) * kCell + x, ('A' / 16) * kCell + y, y < kCell / 2 ? top : bottom);
            image->setPixel((200 % 16) * kCell + x, (200 / 16) * kCell + y, Color::pack(0, 255, 0, 255));
        }
    }
    return image;
}

void expectQuad(const Font::GlyphQuad& q, float x0, float x1, float u0, float v0, float u1, float v1)
{
    const float positions[8] = {x0, 0, x1, 0, x1, 1, x0, 1};
    const float texCoords[8] = {u0, v0, u1, v0, u1, v1, u0, v1};
    for (int i = 0; i < 8; ++i) {
        EXPECT_FLOAT_EQ(q.positions[i], positions[i]) << "position " << i;
        EXPECT_FLOAT_EQ(q.texCoords[i], texCoords[i]) << "texture coordinate " << i;
    }
}

class FontTest : public CleanWindowTest {
protected:
    // Draws text 40 pixels high from (100, 100) with fixed-function texturing in white.
    static void drawLine(Font& font, const char* text)
    {
        static const GLubyte white[16] = {255, 255, 255, 255, 255, 255, 255, 255,
                                          255, 255, 255, 255, 255, 255, 255, 255};
        glEnableClientState(GL_COLOR_ARRAY);
        glColorPointer(4, GL_UNSIGNED_BYTE, 0, white);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslatef(100.0f, 100.0f, 0.0f);
        glScalef(40.0f, 40.0f, 1.0f);
        font.draw(text);
        glLoadIdentity();
        glDisable(GL_TEXTURE_2D);
    }
};
} // namespace

TEST(FontGlyphs, CharacterSitsInColumnCodeMod16AndRowCodeDiv16)
{
    const Font::GlyphQuad q = Font::glyphQuad('A', 0.0f, 1.0f, 1.0f, 1.0f);
    expectQuad(q, 0.0f, 1.0f, 1.0f / 16, 4.0f / 16, 2.0f / 16, 5.0f / 16);
}

TEST(FontGlyphs, CharactersAbove127SelectRows8To15)
{
    expectQuad(Font::glyphQuad(128, 0.0f, 1.0f, 1.0f, 1.0f), 0, 1, 0.0f, 8.0f / 16, 1.0f / 16, 9.0f / 16);
    expectQuad(Font::glyphQuad(200, 0.0f, 1.0f, 1.0f, 1.0f), 0, 1, 8.0f / 16, 12.0f / 16, 9.0f / 16, 13.0f / 16);
    expectQuad(Font::glyphQuad(255, 0.0f, 1.0f, 1.0f, 1.0f), 0, 1, 15.0f / 16, 15.0f / 16, 1.0f, 1.0f);
}

TEST(FontGlyphs, CellsShrinkWithTheUsedFractionOfThePaddedTexture)
{
    const Font::GlyphQuad q = Font::glyphQuad(17, 0.0f, 1.0f, 0.5f, 0.75f);
    expectQuad(q, 0, 1, 0.5f / 16, 0.75f / 16, 1.0f / 16, 1.5f / 16);
}

TEST(FontGlyphs, QuadStartsAtXAndIsOneAdvanceWideAndOneLineHigh)
{
    const Font::GlyphQuad q = Font::glyphQuad(0, 3.0f, 2.5f, 1.0f, 1.0f);
    expectQuad(q, 3.0f, 5.5f, 0.0f, 0.0f, 1.0f / 16, 1.0f / 16);
}

TEST(FontRecord, AdvanceIsPictureWidthOverHeight)
{
    Font font(new Image(512, 256));
    EXPECT_EQ(font.width(), 512);
    EXPECT_EQ(font.height(), 256);
    EXPECT_FLOAT_EQ(font.advance(), 2.0f);
    EXPECT_EQ(font.texture, nullptr);
}

TEST(FontRecord, FontWithoutAPictureHasNoSizeAndNoAdvance)
{
    Font font(nullptr);
    EXPECT_EQ(font.width(), 0);
    EXPECT_EQ(font.height(), 0);
    EXPECT_FLOAT_EQ(font.advance(), 0.0f);
}

TEST_F(FontTest, TextureIsMadeOnFirstUseAndKept)
{
    const uint32_t before = Texture::usedMemory;
    auto* font = new Font(new Image(100, 100));
    EXPECT_EQ(Texture::usedMemory, before);
    Texture* texture = font->getTexture();
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ(font->texture, texture);
    EXPECT_EQ(font->getTexture(), texture);
    EXPECT_FLOAT_EQ(texture->uScale, 100.0f / 128.0f);
    EXPECT_EQ(Texture::usedMemory - before, 128u * 128u * 4u);
    delete font;
    EXPECT_EQ(Texture::usedMemory, before);
}

TEST_F(FontTest, GlyphIsDrawnUprightWithTheSceneYAxisPointingDown)
{
    Font font(testFontImage());
    drawLine(font, "A");
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 105, kHeight), 255, 0, 0))
        << pixelprobe::readPixel(120, 105, kHeight);
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 128, kHeight), 0, 0, 255))
        << pixelprobe::readPixel(120, 128, kHeight);
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 145, kHeight), 0, 0, 0));
}

TEST_F(FontTest, EachCharacterAdvancesByOneCellWidthWithoutSpacing)
{
    Font font(testFontImage());
    drawLine(font, "\x01" "A");
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 105, kHeight), 0, 0, 0));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(160, 105, kHeight), 255, 0, 0));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(185, 105, kHeight), 0, 0, 0));
}

TEST_F(FontTest, CharacterAbove127DrawsItsCellFromTheLowerHalf)
{
    Font font(testFontImage());
    drawLine(font, "\xC8");
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 120, kHeight), 0, 255, 0))
        << pixelprobe::readPixel(120, 120, kHeight);
}

TEST_F(FontTest, DrawBindsTheFontTextureOnUnitZero)
{
    Font font(testFontImage());
    drawLine(font, "");
    ASSERT_NE(font.texture, nullptr);
    GLint active = 0, bound = 0;
    glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(active, GL_TEXTURE0);
    EXPECT_EQ(static_cast<GLuint>(bound), font.texture->id);
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 120, kHeight), 0, 0, 0));
}

TEST_F(FontTest, FontWithoutAPictureDrawsNothing)
{
    Font font(nullptr);
    drawLine(font, "AAAA");
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(101, 101, kHeight), 0, 0, 0));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(120, 120, kHeight), 0, 0, 0));
}
