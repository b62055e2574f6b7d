#include "hud/Reticle.h"

#include "DisplayTest.h"
#include "base/Resources.h"
#include "platform/EventState.h"
#include "play/GameSession.h"
#include "scene/DirectScene2D.h"
#include "scene/Sprite.h"

#include <gtest/gtest.h>
#include <unistd.h>

using vorlik::Vorlik;

namespace {

TEST(Reticle, IsTheMarkThenItsGlowBothCentredOnTheGroup)
{
    Reticle reticle;
    ASSERT_EQ(reticle.childCount(), 2u);
    EXPECT_EQ(reticle.first, reticle.reticleSprite);
    EXPECT_EQ(reticle.last, reticle.reticleGlow);
    EXPECT_EQ(reticle.reticleSprite->texture, Resources::reticle_tex);
    EXPECT_EQ(reticle.reticleGlow->texture, Resources::reticle_glow_tex);
    EXPECT_EQ(reticle.reticleSprite->size.x, 38.0f);
    EXPECT_EQ(reticle.reticleSprite->size.y, 38.0f);
    EXPECT_EQ(reticle.reticleGlow->size.x, 40.0f);
    EXPECT_EQ(reticle.reticleGlow->size.y, 40.0f);
    EXPECT_TRUE(reticle.isVisible());
    EXPECT_EQ(reticle.flags, Drawable::kDefaultFlags | DRAW_HAS_CHILDREN | DRAW_BOUNDS_DIRTY);
}

TEST(Reticle, TheGlowIsHalfLitAtTimeZero) { EXPECT_EQ(Reticle::glowAlpha(0), 128); }

TEST(Reticle, TheGlowPulsesBetween64And191AboutEvery1257ms)
{
    EXPECT_EQ(Reticle::glowAlpha(314), 191); // sin(1.57) x 64 = 63.99998
    EXPECT_EQ(Reticle::glowAlpha(942), 64);  // sin(4.71) x 64 = -63.9997
    int lowest = 255, highest = 0;
    for (uint32_t now = 0; now < 1257; ++now) {
        const int alpha = Reticle::glowAlpha(now);
        lowest = alpha < lowest ? alpha : lowest;
        highest = alpha > highest ? alpha : highest;
    }
    EXPECT_EQ(lowest, 64);
    EXPECT_EQ(highest, 191);
    EXPECT_EQ(Reticle::glowAlpha(1257), 128); // one period: 2 pi / 0.005 = 1256.6 ms
}

TEST(Reticle, TheWholeSumIsTruncatedNotTheSwingAlone)
{
    // At 629 ms the swing is sin(3.145) x 64 = -0.22: the alpha is 127 (127.78), where
    // truncating the swing first would give 128.
    EXPECT_EQ(Reticle::glowAlpha(629), 127);
}

// A HUD scene and an input snapshot owned by the test.
class ReticleFollowsTheMouse : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        ASSERT_EQ(chdir(KELVANE_RUN_DIR), 0);
        savedHud = g_hud;
        g_hud = new DirectScene2D(-1, -1);
        savedEvents = Vorlik::events;
        Vorlik::events = &input;
        savedTime = Vorlik::currentTime;
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        Vorlik::currentTime = savedTime;
        Vorlik::events = savedEvents;
        delete g_hud;
        g_hud = savedHud;
    }

    // The frame's input snapshot with the mouse at (x, y), as endFrame leaves it.
    void moveMouse(int x, int y)
    {
        input.currentMouseX = x;
        input.currentMouseY = y;
    }

    vorlik::EventState input;
    vorlik::EventState* savedEvents = nullptr;
    DirectScene2D* savedHud = nullptr;
    uint32_t savedTime = 0;
};

TEST_F(ReticleFollowsTheMouse, ToTheSamePixelOnTheHud)
{
    Reticle reticle;
    moveMouse(1000, 200);
    reticle.updateReticle();
    EXPECT_EQ(reticle.position.x, 1000.0f);
    EXPECT_EQ(reticle.position.y, 200.0f);
    EXPECT_EQ(reticle.position.z, 0.0f);
    moveMouse(3, 715);
    reticle.updateReticle();
    EXPECT_EQ(reticle.position.x, 3.0f);
    EXPECT_EQ(reticle.position.y, 715.0f);
}

TEST_F(ReticleFollowsTheMouse, ThroughTheHudsOwnConversion)
{
    Reticle reticle;
    g_hud->camera.x += 100;
    g_hud->camera.zoom = 2;
    moveMouse(840, 360);
    reticle.updateReticle();
    const vorlik::vec2 expected = g_hud->windowToWorld(840, 360);
    EXPECT_EQ(reticle.position.x, expected.x);
    EXPECT_EQ(reticle.position.y, expected.y);
    EXPECT_EQ(reticle.position.x, 840.0f); // (840 - 640) / 2 + 740
}

TEST_F(ReticleFollowsTheMouse, WhateverTheShipIsDoingAsItAsksNothingOfTheSession)
{
    GameSession* savedGame = g_game;
    g_game = nullptr;
    Reticle reticle;
    moveMouse(640, 100);
    reticle.updateReticle();
    EXPECT_EQ(reticle.position.x, 640.0f);
    EXPECT_EQ(reticle.position.y, 100.0f);
    g_game = savedGame;
}

TEST_F(ReticleFollowsTheMouse, AndSetsTheGlowForTheFrameTime)
{
    Reticle reticle;
    Vorlik::currentTime = 314;
    reticle.updateReticle();
    EXPECT_EQ(reticle.reticleGlow->color.a, 191);
    EXPECT_EQ(reticle.reticleSprite->color.a, 255);
    Vorlik::currentTime = 0;
    reticle.updateReticle();
    EXPECT_EQ(reticle.reticleGlow->color.a, 128);
}

} // namespace
