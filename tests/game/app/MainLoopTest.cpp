// The runlevel transitions of the main loop, driven through the engine's input snapshot and
// clock set by the test; each simulated frame lasts 16 ms. Nothing is drawn, but entering the
// game builds the session into real scenes, which need the window.
#include "app/MainLoop.h"

#include "GameScenesTest.h"
#include "WorkingDirectory.h"
#include "app/Music.h"
#include "app/Runlevel.h"
#include "app/TitleScreen.h"
#include "hud/ScoreCounter.h"
#include "platform/Vorlik.h"
#include "player/Player.h"
#include "scene/Fader.h"
#include "scene/Starfield.h"

#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

using vorlik::Vorlik;

namespace {

constexpr uint32_t kFrameMs = 16;

// Entering the game builds a session into real scenes, so the loop runs with the window.
class MainLoopKeys : public GameScenesTest {
protected:
    Fader* savedFader = nullptr;
    Fader fader;
    MainLoop loop;

    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        savedFader = g_fader;
        g_fader = &fader;
        Vorlik::currentTime = 1000; // a new fader ended at 0, long ago
        runlevel = RUNLEVEL_TITLE;
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        g_fader = savedFader;
        GameScenesTest::TearDown();
    }

    void key(SDLKey k, bool down) { input->key(k, down); }
    void button(Uint8 b, bool down) { input->button(b, down); }
    void tap(SDLKey k)
    {
        key(k, true);
        frame();
        key(k, false);
    }
    // Closes a frame the way endFrame does and lets the loop react to it.
    void frame()
    {
        Vorlik::currentTime += kFrameMs;
        input->snapshot();
        loop.handleKeys();
    }
    // Frames until the running fade is over, and one more for the loop to see it.
    void finishFade()
    {
        while (!fader.isDone()) frame();
        frame();
    }
    void expectFadingToBlack(uint32_t ms)
    {
        EXPECT_EQ(fader.red, 0.0f);
        EXPECT_EQ(fader.green, 0.0f);
        EXPECT_EQ(fader.blue, 0.0f);
        EXPECT_EQ(fader.opacity, 1.0f);
        EXPECT_EQ(fader.fromAlpha, 0.0f);
        EXPECT_EQ(fader.toAlpha, 1.0f);
        EXPECT_EQ(fader.endTime - fader.startTime, ms);
    }
};

} // namespace

TEST_F(MainLoopKeys, TitleWaitsWithoutInput)
{
    for (int i = 0; i < 5; ++i) frame();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE);
}

TEST_F(MainLoopKeys, EachTitleKeyStartsASecondLongFadeToBlack)
{
    for (SDLKey k : {SDLK_RETURN, SDLK_SPACE, SDLK_KP_ENTER}) {
        runlevel = RUNLEVEL_TITLE;
        fader = Fader();
        tap(k);
        EXPECT_EQ(runlevel, RUNLEVEL_ENTERING) << "key " << k;
        expectFadingToBlack(1000);
        frame();
    }
}

TEST_F(MainLoopKeys, EachMouseButtonStartsTheFadeIntoTheGame)
{
    for (Uint8 b : {SDL_BUTTON_LEFT, SDL_BUTTON_MIDDLE, SDL_BUTTON_RIGHT}) {
        runlevel = RUNLEVEL_TITLE;
        fader = Fader();
        button(b, true);
        frame();
        button(b, false);
        EXPECT_EQ(runlevel, RUNLEVEL_ENTERING) << "button " << int(b);
        frame();
    }
}

TEST_F(MainLoopKeys, GameBeginsWhenTheFadeToBlackIsOverAndFadesIn)
{
    tap(SDLK_RETURN);
    const uint32_t fadeEnd = fader.endTime;
    while (Vorlik::currentTime <= fadeEnd) {
        EXPECT_EQ(runlevel, RUNLEVEL_ENTERING);
        frame();
    }
    EXPECT_EQ(runlevel, RUNLEVEL_GAME);
    EXPECT_EQ(fader.fromAlpha, 1.0f);
    EXPECT_EQ(fader.toAlpha, 0.0f);
    EXPECT_EQ(fader.endTime - fader.startTime, 500u);
}

TEST_F(MainLoopKeys, EnteringTheGameCreatesAndStartsTheSession)
{
    tap(SDLK_RETURN);
    EXPECT_EQ(g_game, nullptr);
    finishFade();
    ASSERT_NE(g_game, nullptr);
    ASSERT_NE(g_game->player, nullptr);
    EXPECT_TRUE(g_game->playing);
    EXPECT_EQ(g_game->wave, 0);
    EXPECT_EQ(g_game->player->position, vorlik::vec2(2048, 2048));
    EXPECT_EQ(g_world->first, g_game->starfield);
    EXPECT_EQ(g_game->friends.count, 1u);
}

TEST_F(MainLoopKeys, EnteringTheGameTearsTheTitleDownBeforeTheSessionFillsTheHud)
{
    loop.title = new TitleScreen();
    EXPECT_EQ(g_hud->count, 13u);
    tap(SDLK_RETURN);
    finishFade();
    EXPECT_EQ(loop.title, nullptr);
    ASSERT_NE(g_game, nullptr);
    EXPECT_EQ(g_hud->count, 6u); // three panels, the reticle, the energy line and the score
    EXPECT_EQ(g_hud->last, g_game->scoreCounter->drawable);
}

TEST_F(MainLoopKeys, APassInTheGameAdvancesTheSession)
{
    tap(SDLK_RETURN);
    finishFade();
    ASSERT_EQ(runlevel, RUNLEVEL_GAME);
    loop.pass();
    // The session's frame moved the camera from the scene's first place onto the ship.
    EXPECT_EQ(g_world->camera.x, g_game->player->position.x);
    EXPECT_EQ(g_world->camera.y, g_game->player->position.y);
}

TEST_F(MainLoopKeys, ReturnAndEscapeInOneFrameStartTheGameAndIgnoreEscape)
{
    key(SDLK_RETURN, true);
    key(SDLK_ESCAPE, true);
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_ENTERING);
    expectFadingToBlack(1000);
}

TEST_F(MainLoopKeys, EscapeDuringTheFadeIntoTheGameIsIgnored)
{
    tap(SDLK_RETURN);
    for (int i = 0; i < 10; ++i) frame();
    tap(SDLK_ESCAPE);
    EXPECT_EQ(runlevel, RUNLEVEL_ENTERING);
    finishFade();
    EXPECT_EQ(runlevel, RUNLEVEL_GAME);
}

TEST_F(MainLoopKeys, EscapeInTheGameQuitsAfterASecondLongFadeToBlack)
{
    runlevel = RUNLEVEL_GAME;
    tap(SDLK_ESCAPE);
    EXPECT_EQ(runlevel, RUNLEVEL_QUITTING);
    expectFadingToBlack(1000);
    const uint32_t fadeEnd = fader.endTime;
    while (Vorlik::currentTime <= fadeEnd) {
        EXPECT_EQ(runlevel, RUNLEVEL_QUITTING);
        frame();
    }
    EXPECT_EQ(runlevel, RUNLEVEL_LEAVE);
}

TEST_F(MainLoopKeys, EscapeOnTheTitleQuitsToo)
{
    tap(SDLK_ESCAPE);
    EXPECT_EQ(runlevel, RUNLEVEL_QUITTING);
    finishFade();
    EXPECT_EQ(runlevel, RUNLEVEL_LEAVE);
}

TEST_F(MainLoopKeys, HeldReturnDoesNotStartTheGameButAHeldButtonDoes)
{
    // Both go down while a fade runs, so neither counts yet.
    fader.fadeIn(500);
    key(SDLK_RETURN, true);
    button(SDL_BUTTON_LEFT, true);
    frame();
    button(SDL_BUTTON_LEFT, false);
    finishFade();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE) << "Return went down during the fade";

    fader.fadeIn(500);
    button(SDL_BUTTON_LEFT, true);
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE);
    Vorlik::currentTime = fader.endTime; // the next frame is the first after the fade
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_ENTERING) << "a held button counts as soon as the fade is over";
}

TEST_F(MainLoopKeys, OtherKeysAndTheWheelDoNotStartTheGame)
{
    key(SDLK_w, true);
    button(SDL_BUTTON_WHEELUP, true);
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE);
}

TEST_F(MainLoopKeys, TheMenuRunlevelIgnoresTheTitleKeys)
{
    runlevel = RUNLEVEL_MENU;
    tap(SDLK_RETURN);
    EXPECT_EQ(runlevel, RUNLEVEL_MENU);
}

TEST_F(MainLoopKeys, F1OnTenFramesWritesScreenshotsOneToTenOverwritingFilesOfThoseNames)
{
    EmptyDirectory empty;
    {
        WorkingDirectory there(empty.path);
        {
            std::ofstream old("screenshot_3.bmp");
            old << "an older file of the same name";
        }
        for (int i = 0; i < 10; ++i) {
            tap(SDLK_F1);
            frame(); // with the key up, so that the next frame sees a new press
        }
        for (int n = 1; n <= 10; ++n) {
            const std::string name = "screenshot_" + std::to_string(n) + ".bmp";
            std::ifstream shot(name, std::ios::binary);
            char magic[2] = {};
            shot.read(magic, 2);
            EXPECT_TRUE(shot && magic[0] == 'B' && magic[1] == 'M') << name << " is not a BMP";
            std::remove(name.c_str());
        }
        EXPECT_FALSE(std::ifstream("screenshot_11.bmp").good());
    }
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE) << "F1 changes nothing else";
}

TEST_F(MainLoopKeys, EnteringTheGamePlaysTheMusicAndEscapeFadesItOut)
{
    {
        WorkingDirectory there(KELVANE_RUN_DIR);
        loadMusic();
    }
    ASSERT_NE(music, nullptr) << Mix_GetError();
    tap(SDLK_RETURN);
    finishFade();
    ASSERT_EQ(runlevel, RUNLEVEL_GAME);
    EXPECT_EQ(Mix_PlayingMusic(), 1);
    EXPECT_EQ(Mix_FadingMusic(), MIX_NO_FADING);
    tap(SDLK_ESCAPE);
    EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_OUT);

    Mix_HaltMusic();
    Mix_FreeMusic(music);
    music = nullptr;
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}
