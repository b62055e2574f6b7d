// The four fonts: a 16 x 16 grid of cells holding white glyphs where the game prints text,
// sized for the places the game uses them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "RunDirFiles.h"

using testing_assets::gfxPath;
using testing_assets::loadPng;
using testing_assets::Rgba;

namespace {

const char* const kFonts[] = {"hugefont", "medfont", "smallfont", "minifont"};

// Pixels of a character's cell that are clearly inked white.
int ink(const Rgba& font, unsigned char c)
{
    int cw = font.width / 16, ch = font.height / 16;
    int x0 = (c % 16) * cw, y0 = (c / 16) * ch, n = 0;
    for (int y = y0; y < y0 + ch; ++y)
        for (int x = x0; x < x0 + cw; ++x) {
            const uint8_t* p = font.at(x, y);
            n += p[3] > 160 && p[0] > 200 && p[1] > 200 && p[2] > 200;
        }
    return n;
}

int anyAlpha(const Rgba& font, unsigned char c)
{
    int cw = font.width / 16, ch = font.height / 16;
    int x0 = (c % 16) * cw, y0 = (c / 16) * ch, n = 0;
    for (int y = y0; y < y0 + ch; ++y)
        for (int x = x0; x < x0 + cw; ++x)
            n += font.alpha(x, y) > 0;
    return n;
}

// Bilinear sample of one channel, as the game's textures filter without mipmaps.
float sample(const Rgba& font, float u, float v, int channel)
{
    float x = u - 0.5f, y = v - 0.5f;
    int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
    float fx = x - x0, fy = y - y0;
    auto at = [&](int xi, int yi) {
        xi = std::max(0, std::min(font.width - 1, xi));
        yi = std::max(0, std::min(font.height - 1, yi));
        return static_cast<float>(font.at(xi, yi)[channel]) / 255.0f;
    };
    return (at(x0, y0) * (1 - fx) + at(x0 + 1, y0) * fx) * (1 - fy) +
           (at(x0, y0 + 1) * (1 - fx) + at(x0 + 1, y0 + 1) * fx) * fy;
}

} // namespace

TEST(FontCells, GridOfEqualCells)
{
    for (const char* name : kFonts) {
        Rgba font = loadPng(gfxPath(name));
        ASSERT_TRUE(font.valid()) << name;
        EXPECT_EQ(font.width % 16, 0) << name;
        EXPECT_EQ(font.height % 16, 0) << name;
    }
}

TEST(FontCells, PrintedCharactersHaveInkAndSpaceHasNone)
{
    std::string printed = ":+-=.')";
    for (char c = 'A'; c <= 'Z'; ++c)
        printed += c;
    for (char c = 'a'; c <= 'z'; ++c)
        printed += c;
    for (char c = '0'; c <= '9'; ++c)
        printed += c;
    for (const char* name : kFonts) {
        Rgba font = loadPng(gfxPath(name));
        ASSERT_TRUE(font.valid()) << name;
        for (char c : printed)
            EXPECT_GT(ink(font, static_cast<unsigned char>(c)), 0) << name << " '" << c << "'";
        EXPECT_EQ(anyAlpha(font, ' '), 0) << name;
    }
}

TEST(FontCells, CellBordersStayEmpty)
{
    // Linear filtering reads half a texel past a cell's edge: ink there would show as a
    // sliver of the neighbouring character.
    for (const char* name : kFonts) {
        Rgba font = loadPng(gfxPath(name));
        ASSERT_TRUE(font.valid()) << name;
        const int cw = font.width / 16, ch = font.height / 16;
        int inked = 0;
        for (int y = 0; y < font.height; ++y)
            for (int x = 0; x < font.width; ++x) {
                bool border = x % cw == 0 || x % cw == cw - 1 || y % ch == 0 || y % ch == ch - 1;
                inked += border && font.alpha(x, y) > 0;
            }
        EXPECT_EQ(inked, 0) << name;
    }
}

TEST(FontCells, TitleNoticeFitsTheWindowInTheMediumFont)
{
    Rgba font = loadPng(gfxPath("medfont"));
    ASSERT_TRUE(font.valid());
    float line = static_cast<float>(font.height / 16);
    // 13 lines from y = 25, 9 pixels apart, three gaps 35 wider and one 25 wider.
    float bottom = 25 + 13 * line + 12 * 9 + 3 * 35 + 25;
    EXPECT_LE(bottom, 720);
    // The longest line must fit the width too.
    float aspect = static_cast<float>(font.width) / font.height;
    EXPECT_LE(std::string("the game to you in its intended form by Saturday.").size() * aspect * line, 1280);
}

TEST(FontCells, BigFontSurvivesDrawingAtFifteenPixels)
{
    Rgba font = loadPng(gfxPath("hugefont"));
    ASSERT_TRUE(font.valid());
    const float height = 15;
    const int cw = font.width / 16, ch = font.height / 16;
    const float scale = ch / height;  // texels per screen pixel
    const int drawnW = static_cast<int>(cw / scale), drawnH = static_cast<int>(height);
    for (char c : std::string("Energy:0123456789")) {
        int x0 = (c % 16) * cw, y0 = (c / 16) * ch;
        float best = 0;
        for (int y = 0; y < drawnH; ++y)
            for (int x = 0; x < drawnW; ++x) {
                float u = x0 + (x + 0.5f) * scale, v = y0 + (y + 0.5f) * scale;
                best = std::max(best, sample(font, u, v, 3) * sample(font, u, v, 0));
            }
        EXPECT_GT(best, 0.75f) << "'" << c << "' fades away at 15 pixels";
    }
}
