// Cost of one GameSession::frame() of game logic, nothing drawn: the reticle, every actor's
// update (the ship with its 64 bolts and 3 beams tested against every enemy, each enemy's
// hunt, flight and gun), the particle systems, the wave rule, the camera and the stars. Three
// scenes (SessionScene.h): before any wave; wave 20 (286 new ships and 28 left from waves 1
// and 2) and wave 40 (652 new and 28 left), every ship crowding round the player's ship and
// firing, the explosion particles at capacity. The clock moves 16 ms a frame; the scene is
// held steady between frames with the timer stopped. Needs an X display (Xvfb): the session
// builds into the game's scenes, which need the GL context.
#include "GameScenes.h"
#include "SessionScene.h"

#include "play/GameSession.h"
#include "player/Player.h"

#include <benchmark/benchmark.h>

namespace {

void runFrames(benchmark::State& state, int32_t wave)
{
    if (!bench::openGameWindow(state)) return;
    bench::GameScenes scenes;
    bench::SessionScene scene(wave);
    const uint32_t enemiesBefore = g_game->enemies.count;
    for (auto _ : state) {
        state.PauseTiming();
        scene.nextFrame();
        state.ResumeTiming();
        g_game->frame();
    }
    state.counters["enemies"] = static_cast<double>(g_game->enemies.count);
    state.counters["enemy_bolts"] = static_cast<double>(bench::SessionScene::enemyBoltsInFlight());
    if (g_game->player->hull <= 0.0f || g_game->enemies.count != enemiesBefore || g_game->wave != wave)
        state.SkipWithError("the scene did not hold: the ship died, a ship died or a wave started");
}

void BM_SessionFrameBeforeWaves(benchmark::State& state) { runFrames(state, 0); }
BENCHMARK(BM_SessionFrameBeforeWaves)->Unit(benchmark::kMicrosecond);

void BM_SessionFrameWave20(benchmark::State& state) { runFrames(state, 20); }
BENCHMARK(BM_SessionFrameWave20)->Unit(benchmark::kMicrosecond);

void BM_SessionFrameWave40(benchmark::State& state) { runFrames(state, 40); }
BENCHMARK(BM_SessionFrameWave40)->Unit(benchmark::kMicrosecond);

} // namespace
