// The powerup token's 256 frames loop: the last frame runs on into the first as smoothly as
// any frame into the next, and the glow sheet follows frame for frame.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "RunDirFiles.h"

using testing_assets::gfxPath;
using testing_assets::loadPng;
using testing_assets::Rgba;

namespace {

constexpr int kCell = 64;
constexpr int kColumns = 16;

double frameDifference(const Rgba& sheet, int a, int b)
{
    int ax = (a % kColumns) * kCell, ay = (a / kColumns) * kCell;
    int bx = (b % kColumns) * kCell, by = (b / kColumns) * kCell;
    long total = 0;
    for (int y = 0; y < kCell; ++y)
        for (int x = 0; x < kCell; ++x)
            for (int c = 0; c < 4; ++c)
                total += std::abs(sheet.at(ax + x, ay + y)[c] - sheet.at(bx + x, by + y)[c]);
    return static_cast<double>(total) / (kCell * kCell * 4);
}

void expectLoops(const char* name)
{
    Rgba sheet = loadPng(gfxPath(name));
    ASSERT_TRUE(sheet.valid()) << name;
    ASSERT_EQ(sheet.width, kCell * kColumns);
    ASSERT_EQ(sheet.height, kCell * kColumns);
    double steepest = 0;
    for (int f = 0; f + 1 < 256; ++f)
        steepest = std::max(steepest, frameDifference(sheet, f, f + 1));
    double wrap = frameDifference(sheet, 255, 0);
    EXPECT_LE(wrap, steepest * 1.05 + 0.01) << name;
    // And the animation does move: a quarter of a turn later the token looks different.
    EXPECT_GT(frameDifference(sheet, 0, 8), wrap * 2) << name;
}

} // namespace

TEST(PowerupLoop, TokenSheetLoops) { expectLoops("powerup_anim"); }

TEST(PowerupLoop, GlowSheetLoops) { expectLoops("powerup_glow_anim"); }

TEST(PowerupLoop, GlowSheetFollowsTheToken)
{
    Rgba token = loadPng(gfxPath("powerup_anim")), glow = loadPng(gfxPath("powerup_glow_anim"));
    ASSERT_TRUE(token.valid() && glow.valid());
    // Each frame's halo is bright somewhere and centred on that frame's token.
    for (int f : {0, 16, 37, 100, 255}) {
        int ox = (f % kColumns) * kCell, oy = (f / kColumns) * kCell;
        EXPECT_EQ(token.alpha(ox + kCell / 2, oy + kCell / 2), 255) << f;
        EXPECT_EQ(token.alpha(ox, oy), 0) << f;
        double sum = 0, sx = 0, sy = 0;
        int brightest = 0;
        for (int y = 0; y < kCell; ++y)
            for (int x = 0; x < kCell; ++x) {
                int a = glow.alpha(ox + x, oy + y);
                sum += a;
                sx += a * (x + 0.5);
                sy += a * (y + 0.5);
                brightest = std::max(brightest, a);
            }
        ASSERT_GT(sum, 0) << f;
        EXPECT_GT(brightest, 100) << f;
        EXPECT_NEAR(sx / sum, kCell / 2.0, 2.0) << f;
        EXPECT_NEAR(sy / sum, kCell / 2.0, 2.0) << f;
    }
}
