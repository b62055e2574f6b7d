#include "scene/Text.h"

#include "LeafDrawTest.h"
#include "graphics/Color.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"

using vorlik::Color;
using vorlik::Font;
using vorlik::Image;

namespace {
constexpr int kCell = 4; // pixels per glyph cell of the drawing tests' font

// A 64 x 64 font (advance 1): 'A' is a white cell, code 200 a green one, the rest transparent.
Font* cellFont()
{
    Color::init();
    auto* image = new Image(16 * kCell, 16 * kCell);
    for (int y = 0; y < kCell; ++y) {
        for (int x = 0; x < kCell; ++x) {
            image->setPixel(('A' % 16) * kCell + x, ('A' / 16) * kCell + y, Color::pack(255, 255, 255, 255));
            image->setPixel((200 % 16) * kCell + x, (200 / 16) * kCell + y, Color::pack(0, 255, 0, 255));
        }
    }
    return new Font(image);
}

class TextTest : public LeafDrawTest {
protected:
    void SetUp() override
    {
        LeafDrawTest::SetUp();
        font.reset(cellFont());
    }

    // A 40 pixel high text at (100, 100) in the given colour.
    Text* make(const char* s, float r, float g, float b, float a)
    {
        text = std::make_unique<Text>(font.get(), s);
        text->fontHeight = 40.0f;
        text->setText(s);
        text->setAnchor(ANCHOR_TOP_LEFT);
        text->color[0] = r;
        text->color[1] = g;
        text->color[2] = b;
        text->color[3] = a;
        text->position.x = 100.0f;
        text->position.y = 100.0f;
        return text.get();
    }

    std::unique_ptr<Font> font;
    std::unique_ptr<Text> text;
};
} // namespace

TEST(TextLayout, FontHeightDefaultsToThePictureHeightShiftedRightBy4)
{
    Font font(new Image(256, 200));
    Text text(&font, "x");
    EXPECT_FLOAT_EQ(text.fontHeight, 12.0f);
}

TEST(TextLayout, WidthIsLengthTimesGlyphAdvanceTimesFontHeight)
{
    Font font(new Image(512, 256));
    Text text(&font, "Hello");
    EXPECT_FLOAT_EQ(text.fontHeight, 16.0f);
    EXPECT_FLOAT_EQ(text.size.x, 5 * 2.0f * 16.0f);
    EXPECT_FLOAT_EQ(text.size.y, 16.0f);
    EXPECT_FLOAT_EQ(Text::lineWidth(3, 0.5f, 10.0f), 15.0f);
}

TEST(TextLayout, ConstructorPutsThePositionAtTheTopLeftCorner)
{
    Font font(new Image(512, 256));
    Text text(&font, "Hello");
    EXPECT_FLOAT_EQ(text.anchor.x, 80.0f);
    EXPECT_FLOAT_EQ(text.anchor.y, 8.0f);
    const Rect r = text.bounds();
    EXPECT_FLOAT_EQ(r.x, 0.0f);
    EXPECT_FLOAT_EQ(r.y, 0.0f);
}

TEST(TextLayout, SetTextResizesButKeepsTheAnchor)
{
    Font font(new Image(512, 256));
    Text text(&font, "Hello");
    text.setText("Hi");
    EXPECT_FLOAT_EQ(text.size.x, 64.0f);
    EXPECT_FLOAT_EQ(text.anchor.x, 80.0f);
    EXPECT_STREQ(text.text.data, "Hi");
}

TEST(TextLayout, TextIsCopied)
{
    Font font(new Image(16, 16));
    char buffer[] = "abc";
    Text text(&font, buffer);
    buffer[0] = 'z';
    EXPECT_STREQ(text.text.data, "abc");
}

TEST(TextLayout, NullTextMeansTheEmptyString)
{
    Font font(new Image(512, 256));
    Text text(&font, nullptr);
    EXPECT_EQ(text.text.length, 0u);
    EXPECT_FLOAT_EQ(text.size.x, 0.0f);
    EXPECT_FLOAT_EQ(text.size.y, 16.0f);
}

TEST(TextLayout, EmptyStringHasWidthZero)
{
    Font font(new Image(512, 256));
    Text text(&font, "");
    EXPECT_FLOAT_EQ(text.size.x, 0.0f);
}

TEST(TextLayout, ColourDefaultsToOpaqueWhiteFloats)
{
    Font font(new Image(16, 16));
    Text text(&font, "a");
    for (float c : text.color) EXPECT_FLOAT_EQ(c, 1.0f);
}

TEST(TextLayout, FontWithoutAPictureGivesAnEmptyBox)
{
    Font font(nullptr);
    Text text(&font, "abc");
    EXPECT_FLOAT_EQ(text.fontHeight, 0.0f);
    EXPECT_FLOAT_EQ(text.size.x, 0.0f);
}

TEST_F(TextTest, GlyphsAreDrawnFromTheTopLeftCornerInTheTextColour)
{
    drawAt(*make("AA", 0.0f, 1.0f, 0.0f, 1.0f), stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(120, 120), 0, 255, 0)) << at(120, 120);
    EXPECT_TRUE(pixelprobe::near(at(160, 120), 0, 255, 0)) << at(160, 120);
    EXPECT_TRUE(pixelprobe::near(at(185, 120), 0, 0, 0)) << at(185, 120);
    EXPECT_TRUE(pixelprobe::near(at(120, 145), 0, 0, 0)) << at(120, 145);
    EXPECT_TRUE(pixelprobe::near(at(95, 120), 0, 0, 0)) << at(95, 120);
}

TEST_F(TextTest, EmptyStringDrawsNothing)
{
    Text* t = make("", 1.0f, 1.0f, 1.0f, 1.0f);
    drawAt(*t, stateWithColor(255, 255, 255, 255));
    EXPECT_FLOAT_EQ(t->size.x, 0.0f);
    for (int x = 90; x < 200; x += 5) EXPECT_TRUE(pixelprobe::near(at(x, 120), 0, 0, 0)) << x;
}

TEST_F(TextTest, FadedParentDoesNotFadeTheText)
{
    drawAt(*make("A", 1.0f, 1.0f, 1.0f, 1.0f), stateWithColor(0, 0, 0, 0));
    EXPECT_TRUE(pixelprobe::near(at(120, 120), 255, 255, 255)) << at(120, 120);
}

TEST_F(TextTest, TextAlphaBlendsWithTheBackground)
{
    drawAt(*make("A", 1.0f, 1.0f, 1.0f, 0.5f), stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(120, 120), 128, 128, 128)) << at(120, 120);
}

TEST_F(TextTest, CharactersAbove127DrawCellsFromRows8To15)
{
    drawAt(*make("\xC8", 1.0f, 1.0f, 1.0f, 1.0f), stateWithColor(255, 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(at(120, 120), 0, 255, 0)) << at(120, 120);
}

TEST_F(TextTest, DrawPicksUpAChangedFontHeight)
{
    Text* t = make("A", 1.0f, 1.0f, 1.0f, 1.0f);
    t->fontHeight = 80.0f; // the anchor still says 40 x 40
    drawAt(*t, stateWithColor(255, 255, 255, 255));
    EXPECT_FLOAT_EQ(t->size.x, 80.0f);
    EXPECT_FLOAT_EQ(t->size.y, 80.0f);
    // top-left = position + anchor - size / 2 = 100 + 20 - 40
    EXPECT_TRUE(pixelprobe::near(at(95, 95), 255, 255, 255)) << at(95, 95);
    EXPECT_TRUE(pixelprobe::near(at(75, 85), 0, 0, 0)) << at(75, 85);
}

TEST_F(TextTest, DrawLeavesTheModelViewAsTheSceneSetIt)
{
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(7.0f, 9.0f, 0.0f);
    make("A", 1.0f, 1.0f, 1.0f, 1.0f)->draw(stateWithColor(255, 255, 255, 255));
    GLfloat m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    EXPECT_FLOAT_EQ(m[0], 1.0f);
    EXPECT_FLOAT_EQ(m[12], 7.0f);
    EXPECT_FLOAT_EQ(m[13], 9.0f);
    glLoadIdentity();
}

TEST_F(TextTest, EmptyLineDrawsNoGlyphButSetsUpTheFontTextureAndProgram)
{
    Text* t = make("", 1.0f, 1.0f, 1.0f, 1.0f);
    ASSERT_EQ(font->texture, nullptr);
    glDisable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, 0);
    drawAt(*t, stateWithColor(255, 255, 255, 255));

    ASSERT_NE(font->texture, nullptr);
    GLint current = 0, bound = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &current);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(static_cast<GLuint>(current), Shaders::texture_shader_fixed->id);
    EXPECT_EQ(static_cast<GLuint>(bound), font->texture->id);
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
    EXPECT_TRUE(glIsEnabled(GL_COLOR_ARRAY));
    for (int x = 90; x < 200; x += 5) EXPECT_TRUE(pixelprobe::near(at(x, 120), 0, 0, 0)) << x;
}
