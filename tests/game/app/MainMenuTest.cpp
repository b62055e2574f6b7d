#include "app/MainMenu.h"

#include "DisplayTest.h"
#include "ScriptedInput.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Fader.h"
#include "scene/Sprite.h"
#include "scene/Text.h"

#include <gtest/gtest.h>

using vorlik::Vorlik;

namespace {

TEST(MainMenuTest, NothingCreatesTheMenu)
{
    EXPECT_EQ(g_menu, nullptr);
}

TEST(MainMenuTest, TheColourSetHoldsItsFourPairsAndItsSwitchOnceReset)
{
    MenuColors colors;
    colors.reset();
    const float expected[4][2] = {{0.08f, 0.2f}, {0.05f, 0.5f}, {1.25f, 1.0f}, {1.25f, 1.0f}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(colors.pairs[i][0], expected[i][0]) << i;
        EXPECT_EQ(colors.pairs[i][1], expected[i][1]) << i;
    }
    EXPECT_TRUE(colors.on);
}

// The menu's frame reads the input snapshot of a record owned by the test.
class MainMenuFrame : public ::testing::Test {
protected:
    ScriptedInput input;
    MainMenu menu;
};

TEST_F(MainMenuFrame, TheCursorFollowsTheMouse)
{
    input.mouseAt(300, 200);
    input.snapshot();
    menu.frame();
    EXPECT_EQ(menu.cursor->position.x, 300);
    EXPECT_EQ(menu.cursor->position.y, 200);
    EXPECT_EQ(menu.cursor->position.z, 0);
}

TEST_F(MainMenuFrame, TheFifthEntryStaysAtAlphaThirtyFiveHundredthsWhateverTheTime)
{
    for (uint32_t now : {0u, 314u, 1000u, 123457u}) {
        Vorlik::currentTime = now;
        menu.frame();
        EXPECT_FLOAT_EQ(menu.items[4]->color[3], 0.35f) << now;
    }
    EXPECT_EQ(menu.items[0]->color[3], 1.0f);
    Vorlik::currentTime = 0;
}

// Layout runs a frame tick, so it needs the window.
class MainMenuLayout : public DisplayTest {};

TEST_F(MainMenuLayout, PlacesTheLogoCursorAndEntriesAndFlashesWhite)
{
    DirectScene2D hud(-1, -1);
    Fader fader;
    DirectScene2D* savedHud = g_hud;
    Fader* savedFader = g_fader;
    g_hud = &hud;
    g_fader = &fader;
    MainMenu menu;
    menu.layout();
    EXPECT_EQ(menu.logo->position.x, 640);
    EXPECT_FLOAT_EQ(menu.logo->position.y, 720 * 0.32f);
    EXPECT_EQ(menu.cursor->size.x, 38);
    EXPECT_EQ(menu.cursor->size.y, 38);
    // The cursor's (0.25, 1, 0.25, 1) goes into its byte colour unscaled, truncated: 0, 1, 0, 1.
    EXPECT_EQ(menu.cursor->color.r, 0);
    EXPECT_EQ(menu.cursor->color.g, 1);
    EXPECT_EQ(menu.cursor->color.b, 0);
    EXPECT_EQ(menu.cursor->color.a, 1);
    for (int i = 0; i < MainMenu::kItemCount; ++i) {
        EXPECT_EQ(menu.items[i]->position.x, 400) << i;
        EXPECT_EQ(menu.items[i]->position.y, 350 + 40 * i) << i;
    }
    EXPECT_EQ(hud.count, 7u);
    EXPECT_EQ(fader.red + fader.green + fader.blue + fader.opacity, 4.0f);
    EXPECT_EQ(fader.fromAlpha, 1.0f);
    EXPECT_EQ(fader.toAlpha, 0.0f);
    EXPECT_EQ(fader.endTime - fader.startTime, 2000u);
    EXPECT_EQ(fader.startTime, Vorlik::currentTime);
    g_hud = savedHud;
    g_fader = savedFader;
}

} // namespace
