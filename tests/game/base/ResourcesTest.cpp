#include "base/Resources.h"

#include "DisplayTest.h"
#include "StdoutCapture.h"
#include "WorkingDirectory.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
#include "graphics/ImageLoader.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <cmath>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using vorlik::Font;
using vorlik::Image;
using vorlik::ImageLoader;
using vorlik::Texture;

namespace {

struct ExpectedTexture {
    const char* path;
    Texture** global;
};

// The texture files in the order the game loads them, each with the global it fills.
const ExpectedTexture kExpectedTextures[] = {
    {"gfx/title.png", &Resources::title_tex},
    {"gfx/reticle.png", &Resources::reticle_tex},
    {"gfx/reticle_glow.png", &Resources::reticle_glow_tex},
    {"gfx/star.png", &Resources::star_tex},
    {"gfx/sky_top.png", &Resources::skybox_top_tex},
    {"gfx/sky_bottom.png", &Resources::skybox_bottom_tex},
    {"gfx/sky_left.png", &Resources::skybox_left_tex},
    {"gfx/sky_right.png", &Resources::skybox_right_tex},
    {"gfx/sky_front.png", &Resources::skybox_front_tex},
    {"gfx/sky_back.png", &Resources::skybox_back_tex},
    {"gfx/player_top.png", &Resources::player_top_tex},
    {"gfx/player_mid.png", &Resources::player_mid_tex},
    {"gfx/player_bot.png", &Resources::player_bot_tex},
    {"gfx/player_glow_top.png", &Resources::player_top_glow_tex},
    {"gfx/player_glow_bot.png", &Resources::player_bot_glow_tex},
    {"gfx/slaser.png", &Resources::laser_tex},
    {"gfx/plasmabullet.png", &Resources::plasmabullet_tex},
    {"gfx/powerup_anim.png", &Resources::powerup_anim_tex},
    {"gfx/powerup_glow_anim.png", &Resources::powerup_glow_anim_tex},
    {"gfx/enemy_fighter.png", &Resources::enemy_fighter_tex},
    {"gfx/enemy_fighter_glow.png", &Resources::enemy_fighter_glow_tex},
    {"gfx/enemy_fighter2.png", &Resources::enemy_fighter2_tex},
    {"gfx/enemy_fighter2_glow.png", &Resources::enemy_fighter2_glow_tex},
    {"gfx/enemy_hammerhead.png", &Resources::enemy_hammerhead_tex},
    {"gfx/enemy_hammerhead_glow.png", &Resources::enemy_hammerhead_glow_tex},
    {"gfx/enemy_hammerhead.png", &Resources::enemy_hammerhead2_tex},
    {"gfx/enemy_hammerhead_glow.png", &Resources::enemy_hammerhead2_glow_tex},
    {"gfx/enemy_probe.png", &Resources::enemy_probe_tex},
    {"gfx/enemy_probe_glow.png", &Resources::enemy_probe_glow_tex},
    {"gfx/enemy_probe2.png", &Resources::enemy_probe2_tex},
    {"gfx/enemy_probe2_glow.png", &Resources::enemy_probe2_glow_tex},
    {"gfx/enemy_probe3.png", &Resources::enemy_probe3_tex},
    {"gfx/enemy_probe3_glow.png", &Resources::enemy_probe3_glow_tex},
    {"gfx/hud_radar_dials.png", &Resources::hud_radar_dials_tex},
    {"gfx/hud_radar_mask.png", &Resources::hud_radar_mask_tex},
    {"gfx/hud_bars_mask.png", &Resources::hud_bars_mask_tex},
    {"gfx/hud_score.png", &Resources::hud_score_tex},
    {"gfx/hud_power_dials.png", &Resources::hud_power_dials_tex},
};

struct ExpectedFont {
    const char* path;
    Font** global;
};

const ExpectedFont kExpectedFonts[] = {
    {"gfx/hugefont.png", &Resources::font_big},
    {"gfx/medfont.png", &Resources::font_medium},
    {"gfx/smallfont.png", &Resources::font_small},
    {"gfx/minifont.png", &Resources::font_mini},
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

struct Rgba {
    int r, g, b, a;
};

// Texel (x, y) of a 2D RGBA texture, read back from GL.
Rgba texel(Texture* texture, int x, int y)
{
    std::vector<uint8_t> texels(static_cast<size_t>(texture->width) * texture->height * 4);
    glBindTexture(GL_TEXTURE_2D, texture->id);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    const uint8_t* p = &texels[(static_cast<size_t>(y) * texture->width + x) * 4];
    return Rgba{p[0], p[1], p[2], p[3]};
}

// loadResources in a window, each test starting and ending with every global null.
class ResourcesTest : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        releaseAll();
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        releaseAll();
    }

    static std::string loadCapturingOutput(const std::string& directory)
    {
        WorkingDirectory there(directory);
        StdoutCapture output;
        loadResources();
        return output.text();
    }

    // The lines loadResources prints when every load ends with the given word.
    static std::vector<std::string> expectedLines(const char* outcome)
    {
        std::vector<std::string> lines{":: loading resources..."};
        for (const ExpectedTexture& t : kExpectedTextures)
            lines.push_back(std::string("Loading texture ") + t.path + "... " + outcome);
        for (const ExpectedFont& f : kExpectedFonts)
            lines.push_back(std::string("Loading image ") + f.path + "... " + outcome);
        lines.push_back(":: Generating procedural textures... :: All done.");
        return lines;
    }

private:
    static void releaseAll()
    {
        for (const ExpectedTexture& t : kExpectedTextures) {
            delete *t.global;
            *t.global = nullptr;
        }
        for (const ExpectedFont& f : kExpectedFonts) {
            delete *f.global;
            *f.global = nullptr;
        }
        delete Resources::proc_particle0_tex;
        delete Resources::proc_particle1_tex;
        Resources::proc_particle0_tex = nullptr;
        Resources::proc_particle1_tex = nullptr;
    }
};

} // namespace

TEST(ResourcesTable, TexturesLoadTheGameFilesInOrderIntoTheirGlobals)
{
    ASSERT_EQ(Resources::kTextureFileCount, std::size(kExpectedTextures));
    for (uint32_t i = 0; i < Resources::kTextureFileCount; ++i) {
        EXPECT_STREQ(Resources::kTextureFiles[i].path, kExpectedTextures[i].path) << "row " << i + 1;
        EXPECT_EQ(Resources::kTextureFiles[i].global, kExpectedTextures[i].global) << "row " << i + 1;
    }
}

TEST(ResourcesTable, FontsLoadBigMediumSmallMiniInOrder)
{
    ASSERT_EQ(Resources::kFontFileCount, std::size(kExpectedFonts));
    for (uint32_t i = 0; i < Resources::kFontFileCount; ++i) {
        EXPECT_STREQ(Resources::kFontFiles[i].path, kExpectedFonts[i].path) << i;
        EXPECT_EQ(Resources::kFontFiles[i].global, kExpectedFonts[i].global) << i;
    }
}

TEST_F(ResourcesTest, WithAllFilesPresentEveryLineSaysOkInLoadingOrder)
{
    const std::string output = loadCapturingOutput(KELVANE_RUN_DIR);
    const std::vector<std::string> lines = linesOf(output);
    const std::vector<std::string> expected = expectedLines("OK");
    ASSERT_EQ(lines.size(), expected.size()) << output;
    EXPECT_EQ(lines.size(), 1u + 38u + 4u + 1u);
    for (size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(lines[i], expected[i]) << "line " << i;
    EXPECT_EQ(output.back(), '\n');
}

TEST_F(ResourcesTest, EveryTextureHasItsPicturesSize)
{
    loadCapturingOutput(KELVANE_RUN_DIR);
    WorkingDirectory there(KELVANE_RUN_DIR);
    for (const ExpectedTexture& t : kExpectedTextures) {
        Texture* texture = *t.global;
        ASSERT_NE(texture, nullptr) << t.path;
        std::unique_ptr<Image> picture(ImageLoader::load(t.path, false));
        ASSERT_NE(picture, nullptr) << t.path;
        EXPECT_EQ(std::lround(texture->width * texture->uScale), picture->width) << t.path;
        EXPECT_EQ(std::lround(texture->height * texture->vScale), picture->height) << t.path;
    }
}

TEST_F(ResourcesTest, EveryFontHoldsItsPictureAndATextureMadeFromIt)
{
    loadCapturingOutput(KELVANE_RUN_DIR);
    WorkingDirectory there(KELVANE_RUN_DIR);
    for (const ExpectedFont& f : kExpectedFonts) {
        Font* font = *f.global;
        ASSERT_NE(font, nullptr) << f.path;
        ASSERT_NE(font->image, nullptr) << f.path;
        std::unique_ptr<Image> picture(ImageLoader::load(f.path, false));
        ASSERT_NE(picture, nullptr) << f.path;
        EXPECT_EQ(font->width(), picture->width) << f.path;
        EXPECT_EQ(font->height(), picture->height) << f.path;
        ASSERT_NE(font->texture, nullptr) << f.path;
        EXPECT_EQ(std::lround(font->texture->width * font->texture->uScale), picture->width) << f.path;
    }
}

TEST_F(ResourcesTest, SecondHammerheadLoadsTheSameFilesIntoItsOwnTextures)
{
    loadCapturingOutput(KELVANE_RUN_DIR);
    ASSERT_NE(Resources::enemy_hammerhead_tex, nullptr);
    ASSERT_NE(Resources::enemy_hammerhead2_tex, nullptr);
    EXPECT_NE(Resources::enemy_hammerhead_tex, Resources::enemy_hammerhead2_tex);
    EXPECT_NE(Resources::enemy_hammerhead_tex->id, Resources::enemy_hammerhead2_tex->id);
    EXPECT_NE(Resources::enemy_hammerhead_glow_tex, Resources::enemy_hammerhead2_glow_tex);
    EXPECT_NE(Resources::enemy_hammerhead_glow_tex->id, Resources::enemy_hammerhead2_glow_tex->id);
    EXPECT_EQ(Resources::enemy_hammerhead_tex->width, Resources::enemy_hammerhead2_tex->width);
    EXPECT_EQ(Resources::enemy_hammerhead_glow_tex->height, Resources::enemy_hammerhead2_glow_tex->height);
}

TEST_F(ResourcesTest, LargeParticleIsADiscOfRadius60)
{
    loadCapturingOutput(KELVANE_RUN_DIR);
    Texture* disc = Resources::proc_particle0_tex;
    ASSERT_NE(disc, nullptr);
    ASSERT_EQ(disc->width, 128);
    ASSERT_EQ(disc->height, 128);
    const Rgba centre = texel(disc, 64, 64);
    EXPECT_EQ(centre.r, 255);
    EXPECT_EQ(centre.g, 255);
    EXPECT_EQ(centre.b, 255);
    EXPECT_EQ(centre.a, 255);
    const Rgba rim = texel(disc, 64, 4);
    EXPECT_EQ(rim.r + rim.g + rim.b, 0);
    EXPECT_EQ(rim.a, 255);
    const Rgba outside = texel(disc, 64, 3);
    EXPECT_EQ(outside.r + outside.g + outside.b + outside.a, 0);
}

TEST_F(ResourcesTest, SmallParticleIsADiscOfRadius30OnACleanPicture)
{
    loadCapturingOutput(KELVANE_RUN_DIR);
    Texture* disc = Resources::proc_particle1_tex;
    ASSERT_NE(disc, nullptr);
    ASSERT_EQ(disc->width, 128);
    ASSERT_EQ(disc->height, 128);
    EXPECT_EQ(texel(disc, 64, 64).r, 255);
    const Rgba rim = texel(disc, 64, 34);
    EXPECT_EQ(rim.r + rim.g + rim.b, 0);
    EXPECT_EQ(rim.a, 255);
    // Inside the large disc's area but outside the small one: cleared, not left over.
    const Rgba outside = texel(disc, 64, 33);
    EXPECT_EQ(outside.r + outside.g + outside.b + outside.a, 0);
    const Rgba farOut = texel(disc, 64, 10);
    EXPECT_EQ(farOut.r + farOut.g + farOut.b + farOut.a, 0);
}

TEST_F(ResourcesTest, FromAnEmptyDirectoryEveryLineSaysErrorAndLoadingGoesOn)
{
    EmptyDirectory empty;
    const std::string output = loadCapturingOutput(empty.path);
    const std::vector<std::string> lines = linesOf(output);
    const std::vector<std::string> expected = expectedLines("ERROR");
    ASSERT_EQ(lines.size(), expected.size()) << output;
    for (size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(lines[i], expected[i]) << "line " << i;
}

TEST_F(ResourcesTest, MissingPicturesLeaveEmptyTexturesAndFontsWithoutPictures)
{
    EmptyDirectory empty;
    loadCapturingOutput(empty.path);
    for (const ExpectedTexture& t : kExpectedTextures) {
        ASSERT_NE(*t.global, nullptr) << t.path;
        EXPECT_EQ((*t.global)->width, 0) << t.path;
        EXPECT_EQ((*t.global)->height, 0) << t.path;
    }
    for (const ExpectedFont& f : kExpectedFonts) {
        Font* font = *f.global;
        ASSERT_NE(font, nullptr) << f.path;
        EXPECT_EQ(font->image, nullptr) << f.path;
        ASSERT_NE(font->texture, nullptr) << f.path;
        EXPECT_EQ(font->texture->width, 0) << f.path;
    }
    // The particles need no files.
    ASSERT_NE(Resources::proc_particle0_tex, nullptr);
    EXPECT_EQ(Resources::proc_particle0_tex->width, 128);
    ASSERT_NE(Resources::proc_particle1_tex, nullptr);
    EXPECT_EQ(Resources::proc_particle1_tex->width, 128);
}

TEST_F(ResourcesTest, OneMissingPictureFailsOnlyItsOwnLine)
{
    // The loader's error state is read after each load, so a failure does not spill over.
    EmptyDirectory partial;
    const std::string gfx = partial.path + "/gfx";
    ASSERT_EQ(mkdir(gfx.c_str(), 0700), 0);
    const std::string star = gfx + "/star.png";
    ASSERT_EQ(symlink((std::string(KELVANE_RUN_DIR) + "/gfx/star.png").c_str(), star.c_str()), 0);
    const std::vector<std::string> lines = linesOf(loadCapturingOutput(partial.path));
    unlink(star.c_str());
    rmdir(gfx.c_str());
    ASSERT_GE(lines.size(), 6u);
    EXPECT_EQ(lines[3], "Loading texture gfx/reticle_glow.png... ERROR");
    EXPECT_EQ(lines[4], "Loading texture gfx/star.png... OK");
    EXPECT_EQ(lines[5], "Loading texture gfx/sky_top.png... ERROR");
}
