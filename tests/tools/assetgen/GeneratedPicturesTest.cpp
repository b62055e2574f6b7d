// Every picture the game loads exists under gfx/, decodes with SDL_image at its intended
// size, and the craft pictures have the shape the game relies on.
#include <dirent.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "RunDirFiles.h"

using testing_assets::gfxPath;
using testing_assets::loadPng;
using testing_assets::Rgba;

namespace {

struct Expected {
    const char* name;
    int width, height;
};

// Authored near (never above twice) the size each picture is drawn at.
const Expected kPictures[] = {
    {"title", 1024, 256}, {"reticle", 64, 64}, {"reticle_glow", 64, 64}, {"star", 32, 16},
    {"sky_top", 1024, 1024}, {"sky_bottom", 1024, 1024}, {"sky_left", 1024, 1024},
    {"sky_right", 1024, 1024}, {"sky_front", 1024, 1024}, {"sky_back", 1024, 1024},
    {"player_top", 128, 128}, {"player_mid", 128, 128}, {"player_bot", 128, 128},
    {"player_glow_top", 144, 144}, {"player_glow_bot", 120, 120},
    {"slaser", 128, 16}, {"plasmabullet", 32, 32},
    {"powerup_anim", 1024, 1024}, {"powerup_glow_anim", 1024, 1024},
    {"enemy_fighter", 192, 192}, {"enemy_fighter_glow", 192, 192},
    {"enemy_fighter2", 256, 256}, {"enemy_fighter2_glow", 256, 256},
    {"enemy_hammerhead", 256, 256}, {"enemy_hammerhead_glow", 256, 256},
    {"enemy_probe", 160, 160}, {"enemy_probe_glow", 160, 160},
    {"enemy_probe2", 192, 192}, {"enemy_probe2_glow", 192, 192},
    {"enemy_probe3", 224, 224}, {"enemy_probe3_glow", 224, 224},
    {"hud_radar_dials", 512, 512}, {"hud_radar_mask", 512, 512}, {"hud_bars_mask", 400, 160},
    {"hud_score", 400, 120}, {"hud_power_dials", 400, 160},
    {"hugefont", 576, 1024}, {"medfont", 288, 512}, {"smallfont", 192, 352}, {"minifont", 144, 256},
};

const char* const kEnemies[] = {"enemy_fighter", "enemy_fighter2", "enemy_hammerhead",
                                "enemy_probe", "enemy_probe2", "enemy_probe3"};
const char* const kPlayerLayers[] = {"player_top", "player_mid", "player_bot"};

bool isPowerOfTwo(int v) { return v > 0 && (v & (v - 1)) == 0; }

void expectCraftShape(const Rgba& pic, const std::string& name)
{
    ASSERT_TRUE(pic.valid()) << name;
    const int w = pic.width, h = pic.height;
    for (auto [x, y] : {std::pair{0, 0}, {w - 1, 0}, {0, h - 1}, {w - 1, h - 1}})
        EXPECT_EQ(pic.alpha(x, y), 0) << name << " corner " << x << "," << y;
    EXPECT_EQ(pic.alpha(w / 2, h / 2), 255) << name << " centre";
}

} // namespace

TEST(GeneratedPictures, EachDecodesAtItsSize)
{
    for (const Expected& e : kPictures) {
        Rgba pic = loadPng(gfxPath(e.name));
        ASSERT_TRUE(pic.valid()) << e.name;
        EXPECT_EQ(pic.width, e.width) << e.name;
        EXPECT_EQ(pic.height, e.height) << e.name;
    }
}

TEST(GeneratedPictures, GfxHoldsExactlyTheFortyPictures)
{
    std::set<std::string> expected, found;
    for (const Expected& e : kPictures)
        expected.insert(std::string(e.name) + ".png");
    DIR* dir = opendir(testing_assets::runPath("gfx").c_str());
    ASSERT_NE(dir, nullptr);
    while (dirent* entry = readdir(dir)) {
        std::string name = entry->d_name;
        if (name != "." && name != "..")
            found.insert(name);
    }
    closedir(dir);
    EXPECT_EQ(expected.size(), 40u);
    EXPECT_EQ(found, expected);
}

TEST(GeneratedPictures, EnemyBodiesAreOpaqueInsideAndTransparentOutside)
{
    for (const char* name : kEnemies)
        expectCraftShape(loadPng(gfxPath(name)), name);
}

TEST(GeneratedPictures, PlayerLayersAreOpaqueInsideAndTransparentOutside)
{
    for (const char* name : kPlayerLayers)
        expectCraftShape(loadPng(gfxPath(name)), name);
}

TEST(GeneratedPictures, EnemyGlowsMatchTheirBodies)
{
    for (const std::string name : kEnemies) {
        Rgba body = loadPng(gfxPath(name)), glow = loadPng(gfxPath(name + "_glow"));
        ASSERT_TRUE(body.valid() && glow.valid()) << name;
        EXPECT_EQ(glow.width, body.width) << name;
        EXPECT_EQ(glow.height, body.height) << name;
        // Glows hold light only: somewhere bright, and nothing at the corners.
        int lit = 0;
        for (int y = 0; y < glow.height; ++y)
            for (int x = 0; x < glow.width; ++x)
                lit += glow.alpha(x, y) > 128;
        EXPECT_GT(lit, 20) << name;
        EXPECT_EQ(glow.alpha(0, 0), 0) << name;
    }
}

TEST(GeneratedPictures, PlayerHalosKeepTheDrawnProportions)
{
    // The layers are drawn 64 wide, the bottom halo 60 and the top halo 72.
    Rgba layer = loadPng(gfxPath("player_top"));
    Rgba bot = loadPng(gfxPath("player_glow_bot")), top = loadPng(gfxPath("player_glow_top"));
    ASSERT_TRUE(layer.valid() && bot.valid() && top.valid());
    EXPECT_EQ(bot.width * 64, layer.width * 60);
    EXPECT_EQ(top.width * 64, layer.width * 72);
    EXPECT_EQ(bot.width, bot.height);
    EXPECT_EQ(top.width, top.height);
}

TEST(GeneratedPictures, RepeatedPicturesArePowersOfTwo)
{
    // Stars, bolts and the beam are drawn with texture coordinates over the whole texture,
    // the laser repeats ten times along a beam and the sky faces meet at their edges: none
    // of them may be padded by the loader.
    for (const char* name : {"star", "plasmabullet", "slaser", "sky_front", "sky_back", "sky_left", "sky_right",
                             "sky_top", "sky_bottom", "powerup_anim", "powerup_glow_anim"}) {
        Rgba pic = loadPng(gfxPath(name));
        ASSERT_TRUE(pic.valid()) << name;
        EXPECT_TRUE(isPowerOfTwo(pic.width) && isPowerOfTwo(pic.height)) << name;
    }
}

TEST(GeneratedPictures, LaserTilesAlongItsLength)
{
    Rgba laser = loadPng(gfxPath("slaser"));
    ASSERT_TRUE(laser.valid());
    int worst = 0;
    for (int y = 0; y < laser.height; ++y) {
        // Across the seam the step must be no larger than the steepest step inside.
        int seam = std::abs(laser.alpha(0, y) - laser.alpha(laser.width - 1, y));
        int inside = 0;
        for (int x = 1; x < laser.width; ++x)
            inside = std::max(inside, std::abs(laser.alpha(x, y) - laser.alpha(x - 1, y)));
        worst = std::max(worst, seam - inside);
    }
    EXPECT_LE(worst, 0);
    // Bright core in the middle, dark at both long edges.
    EXPECT_GT(laser.alpha(laser.width / 2, laser.height / 2), 200);
    EXPECT_LT(laser.alpha(laser.width / 2, 0), 16);
    EXPECT_LT(laser.alpha(laser.width / 2, laser.height - 1), 16);
}

TEST(GeneratedPictures, LightFadesOutBeforeTheBorder)
{
    // Anything still lit at a picture's border would end in a hard line when drawn.
    const char* const lights[] = {"enemy_fighter_glow", "enemy_fighter2_glow", "enemy_hammerhead_glow",
                                  "enemy_probe_glow",   "enemy_probe2_glow",   "enemy_probe3_glow",
                                  "player_glow_bot",    "player_glow_top",     "reticle_glow",
                                  "plasmabullet",       "star"};
    for (const char* name : lights) {
        Rgba pic = loadPng(gfxPath(name));
        ASSERT_TRUE(pic.valid()) << name;
        int lit = 0;
        for (int x = 0; x < pic.width; ++x)
            lit += pic.alpha(x, 0) > 0 || pic.alpha(x, pic.height - 1) > 0;
        for (int y = 0; y < pic.height; ++y)
            lit += pic.alpha(0, y) > 0 || pic.alpha(pic.width - 1, y) > 0;
        EXPECT_EQ(lit, 0) << name;
    }
    // The token's halo stays inside each of its 64-pixel frames.
    Rgba sheet = loadPng(gfxPath("powerup_glow_anim"));
    ASSERT_TRUE(sheet.valid());
    int lit = 0;
    for (int y = 0; y < sheet.height; ++y)
        for (int x = 0; x < sheet.width; ++x)
            lit += (x % 64 == 0 || x % 64 == 63 || y % 64 == 0 || y % 64 == 63) && sheet.alpha(x, y) > 0;
    EXPECT_EQ(lit, 0);
}
