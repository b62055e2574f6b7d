// The game's window and scenes for the benchmarks that run or draw game frames: the window
// opened once per program in the run directory with every picture and font loaded, as start-up
// does, and GameScenes, which makes a world scene (4096 x 4096) and a HUD scene as g_world and
// g_hud, and g_fader, for one benchmark, and deletes the two scenes again after it. Not for
// tests, which have their own fixtures; needs an X display (Xvfb).
#pragma once

#include "app/MainLoop.h"
#include "base/Resources.h"
#include "platform/Vorlik.h"
#include "play/WorldGeometry.h"
#include "scene/DirectScene2D.h"
#include "scene/Fader.h"
#include "scene/Scene2D.h"

#include <GL/gl.h>
#include <SDL.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace bench {

// Loads every picture and font with the loader's progress lines sent to /dev/null, so that
// they do not break up the results table on standard output.
inline void loadResourcesQuietly()
{
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    const int sink = open("/dev/null", O_WRONLY);
    if (saved >= 0 && sink >= 0) dup2(sink, STDOUT_FILENO);
    loadResources();
    std::fflush(stdout);
    if (saved >= 0 && sink >= 0) dup2(saved, STDOUT_FILENO);
    if (sink >= 0) close(sink);
    if (saved >= 0) close(saved);
}

// Opens the game's window (windowed, no vsync) and loads the pictures and fonts, once per
// program. The shaders and pictures are read by relative path from the run directory, which
// the build makes beside this program's directory (<build>/run beside <build>/bench), so the
// program moves there first, and says so on standard error when it is missing. Without an X
// display the benchmark is skipped with that error: false.
inline bool openGameWindow(benchmark::State& state)
{
    using vorlik::Vorlik;
    if (std::getenv("DISPLAY") == nullptr) {
        state.SkipWithError("no X display");
        return false;
    }
    if (Vorlik::events != nullptr) return true;
    std::error_code error;
    const std::filesystem::path exe = std::filesystem::canonical("/proc/self/exe", error);
    const std::filesystem::path run = exe.parent_path().parent_path() / "run";
    if (error || !std::filesystem::exists(run / "gfx"))
        std::fprintf(stderr, "no pictures in %s: build the kelvane_assets target\n", run.c_str());
    else if (chdir(run.c_str()) != 0)
        std::perror("chdir");
    Vorlik::init(MainLoop::kWindowWidth, MainLoop::kWindowHeight, "GameBench", Vorlik::kWindowed, Vorlik::kVsyncOff);
    loadResourcesQuietly();
    return true;
}

// The two scenes as start-up makes them (window-sized, outlines off) and the program's fader,
// made for one benchmark. The newest GameScenes is the game's: its scenes become g_world and
// g_hud (an older one stays drawable through drawFrame, as an empty frame beside the game's).
// The scenes are deleted again with this object; the fader is kept.
class GameScenes {
public:
    GameScenes() : world(new Scene2D(kWindowSized, kWindowSized)), hud(new DirectScene2D(kWindowSized, kWindowSized))
    {
        world->worldWidth = kWorldWidth;
        world->worldHeight = kWorldHeight;
        world->debugBounds = false;
        hud->debugBounds = false;
        g_world = world;
        g_hud = hud;
        if (g_fader == nullptr) g_fader = new Fader();
    }
    ~GameScenes()
    {
        if (g_hud == hud) g_hud = nullptr;
        if (g_world == world) g_world = nullptr;
        delete hud;
        delete world;
    }
    GameScenes(const GameScenes&) = delete;
    GameScenes& operator=(const GameScenes&) = delete;

    // One frame of these scenes on screen as the main loop draws it: clear, the world (into its
    // target, then composited), the HUD, the fader, the swap; then glFinish, so that the time
    // includes the rasterising. The swap is SDL's own, not Vorlik::endFrame, which would also
    // set the clock that the benchmarks set themselves.
    void drawFrame() const
    {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
        world->render();
        hud->render();
        g_fader->draw();
        SDL_GL_SwapBuffers();
        glFinish();
    }

private:
    static constexpr int32_t kWindowSized = -1;

    Scene2D* world;     // owned
    DirectScene2D* hud; // owned
};

} // namespace bench
