// Fixture for tests that run the game itself: the world scene (4096 x 4096) and the HUD scene as
// start-up makes them, outlines off, made in the run directory so that the shader programs
// load; the test's own input record; and after each test the session, if one was made, and
// the scenes deleted again, and g_rand back at its fixed seed, as the other tests expect it.
#pragma once

#include "DisplayTest.h"
#include "ScriptedInput.h"
#include "base/GameRandom.h"
#include "play/GameSession.h"
#include "play/WorldGeometry.h"
#include "scene/DirectScene2D.h"
#include "scene/Scene2D.h"

#include <gtest/gtest.h>
#include <memory>
#include <unistd.h>

class GameScenesTest : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        ASSERT_EQ(chdir(KELVANE_RUN_DIR), 0);
        g_world = new Scene2D(-1, -1);
        g_world->worldWidth = kWorldWidth;
        g_world->worldHeight = kWorldHeight;
        g_world->debugBounds = false;
        g_hud = new DirectScene2D(-1, -1);
        g_hud->debugBounds = false;
        input = std::make_unique<ScriptedInput>();
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        delete g_game;
        g_game = nullptr;
        delete g_hud;
        delete g_world;
        g_hud = nullptr;
        g_world = nullptr;
        input.reset();
        g_rand.seed(kStaticRandomSeed);
        vorlik::Vorlik::currentTime = 0;
        vorlik::Vorlik::sync = 0;
    }

    std::unique_ptr<ScriptedInput> input;
};
