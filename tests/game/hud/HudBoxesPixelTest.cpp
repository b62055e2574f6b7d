// The three HUD boxes with the real panel pictures, drawn through the HUD scene the way the
// session sets them up, read back from the window. With KELVANE_TEST_PICTURES set to a folder,
// the picture is also written there as hud_boxes.png, to look at.
#include "hud/HUD_RadarBox.h"
#include "hud/HUD_ScoreBox.h"
#include "hud/HUD_WeaponBox.h"

#include "../scene/SceneGLNodes.h"
#include "SceneOverBlackTest.h"
#include "base/Resources.h"
#include "graphics/Font.h"
#include "graphics/ImageLoader.h"
#include "graphics/Texture.h"
#include "hud/ScoreCounter.h"
#include "scene/DirectScene2D.h"
#include "scene/Text.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

using vorlik::ImageLoader;

namespace {

constexpr int kFaint = 3; // a channel above this is drawn on, not the black background

// g_hud is the scene under test; the three panel pictures and the big font come from the run
// directory's gfx.
class HudBoxesPixelTest : public SceneOverBlackTest<DirectScene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        if (IsSkipped()) return;
        savedHud = g_hud;
        g_hud = scene;
        for (Loaded& t : textures) {
            t.saved = *t.global;
            *t.global = ImageLoader::loadTexture(t.path, false);
            ASSERT_EQ(ImageLoader::lastError, 0) << t.path;
        }
        savedFont = Resources::font_big;
        Resources::font_big = new vorlik::Font(ImageLoader::load("gfx/hugefont.png", false));
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        delete Resources::font_big;
        Resources::font_big = savedFont;
        for (Loaded& t : textures) {
            delete *t.global;
            *t.global = t.saved;
        }
        g_hud = savedHud;
        SceneOverBlackTest::TearDown();
    }

    struct Loaded {
        const char* path;
        vorlik::Texture** global;
        vorlik::Texture* saved;
    };
    Loaded textures[3] = {{"gfx/hud_score.png", &Resources::hud_score_tex, nullptr},
                          {"gfx/hud_power_dials.png", &Resources::hud_power_dials_tex, nullptr},
                          {"gfx/hud_radar_dials.png", &Resources::hud_radar_dials_tex, nullptr}};
    vorlik::Font* savedFont = nullptr;
    DirectScene2D* savedHud = nullptr;
};

TEST_F(HudBoxesPixelTest, TheThreePanelsShowAtHalfSizeInTheirCornersWithTheScoreOverItsPanel)
{
    HUD_ScoreBox score;
    HUD_WeaponBox weapons;
    HUD_RadarBox radar;
    g_hud->add(&score);
    g_hud->add(&weapons);
    g_hud->add(&radar);
    // The session's own steps for the score: placed at (15, 12), its text added after the boxes.
    score.counter->position = vorlik::vec2(15, 12);
    score.counter->update();
    g_hud->add(score.counter->text);
    scene->render();

    const WindowPixels window(kWidth, kHeight);
    if (const char* folder = std::getenv("KELVANE_TEST_PICTURES"))
        window.savePng((std::string(folder) + "/hud_boxes.png").c_str());

    // The score panel, 400 x 120 at half size, fills the top-left corner.
    const LitArea scorePanel = window.litIn(0, 0, 400, 300, kFaint);
    EXPECT_EQ(scorePanel.left, 0);
    EXPECT_EQ(scorePanel.top, 0);
    EXPECT_NEAR(scorePanel.right, 199, 1);
    EXPECT_NEAR(scorePanel.bottom, 59, 1);

    // The dials panel, 400 x 160 (the top 7 rows empty), is centred 100 across and 50 up.
    const LitArea weaponPanel = window.litIn(0, 400, 400, kHeight - 1, kFaint);
    EXPECT_EQ(weaponPanel.left, 0);
    EXPECT_NEAR(weaponPanel.top, 630 + 4, 1);
    EXPECT_NEAR(weaponPanel.right, 199, 1);
    EXPECT_NEAR(weaponPanel.bottom, 709, 1);

    // The radar, a 512 x 512 disc, is centred 130 pixels in from the right and the bottom.
    const LitArea radarPanel = window.litIn(800, 300, kWidth - 1, kHeight - 1, kFaint);
    EXPECT_NEAR(radarPanel.left, 1022, 2);
    EXPECT_NEAR(radarPanel.top, 462, 2);
    EXPECT_NEAR(radarPanel.right, 1277, 2);
    EXPECT_NEAR(radarPanel.bottom, 717, 2);

    // Nothing else is drawn.
    EXPECT_EQ(window.litIn(401, 0, 799, kHeight - 1, kFaint).count, 0);
    EXPECT_EQ(window.litIn(0, 301, 400, 399, kFaint).count, 0);
    EXPECT_EQ(window.litIn(800, 0, kWidth - 1, 299, kFaint).count, 0);

    // The "0" of the score, 15 pixels high from (15, 12), shows white over the dark panel.
    int brightest = 0;
    for (int y = 12; y < 27; ++y)
        for (int x = 15; x < 24; ++x) {
            const Pixel p = window.at(x, y);
            brightest = p.g > brightest ? p.g : brightest;
        }
    EXPECT_GT(brightest, 150);
    EXPECT_LT(window.at(40, 20).g, 60); // beside it, only the panel
}

} // namespace
