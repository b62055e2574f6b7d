// Fixture for pixel tests of a whole scene: the scene as the game sets it up (window size,
// outlines off), made in the run directory so the shader programs load by name, over a window
// cleared to opaque black.
#pragma once

#include "DisplayTest.h"

#include <gtest/gtest.h>
#include <unistd.h>

template <class Scene>
class SceneOverBlackTest : public CleanWindowTest {
protected:
    void SetUp() override
    {
        CleanWindowTest::SetUp();
        if (IsSkipped()) return;
        ASSERT_EQ(chdir(KELVANE_RUN_DIR), 0);
        scene = new Scene(-1, -1);
        scene->debugBounds = false;
    }
    void TearDown() override { delete scene; }

    Scene* scene = nullptr;
};
