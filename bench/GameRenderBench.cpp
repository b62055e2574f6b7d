// Cost of drawing one game frame as the main loop does (GameScenes::drawFrame: clear, the
// world scene with the sky box, stars, ships, bolts, beams and particles into its target and
// composited, the HUD, the fader, the swap), under the software rasteriser, beside an empty
// frame that only clears, composites and swaps with nothing in either scene. The game scenes
// (SessionScene.h) are the session before any wave with 64 bolts and 3 beams in the air, and
// waves 20 and 40 with the crowd round the ship and the explosions at capacity. Between two
// drawn frames the session runs one frame of logic with the timer stopped, so each drawn frame
// shows the next moment. Every iteration ends with glFinish; llvmpipe rasterises on worker
// threads, so the figures are wall-clock time. Needs an X display (Xvfb).
#include "GameScenes.h"
#include "SessionScene.h"

#include "play/GameSession.h"

#include <benchmark/benchmark.h>

namespace {

void BM_DrawEmptyFrame(benchmark::State& state)
{
    if (!bench::openGameWindow(state)) return;
    bench::GameScenes scenes;
    for (auto _ : state) bench::GameScenes::drawFrame();
}
BENCHMARK(BM_DrawEmptyFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

void drawGameFrames(benchmark::State& state, int32_t wave)
{
    if (!bench::openGameWindow(state)) return;
    bench::GameScenes scenes;
    bench::SessionScene scene(wave);
    for (auto _ : state) {
        state.PauseTiming();
        scene.nextFrame();
        g_game->frame();
        state.ResumeTiming();
        bench::GameScenes::drawFrame();
    }
}

void BM_DrawGameFrameBeforeWaves(benchmark::State& state) { drawGameFrames(state, 0); }
BENCHMARK(BM_DrawGameFrameBeforeWaves)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_DrawGameFrameWave20(benchmark::State& state) { drawGameFrames(state, 20); }
BENCHMARK(BM_DrawGameFrameWave20)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_DrawGameFrameWave40(benchmark::State& state) { drawGameFrames(state, 40); }
BENCHMARK(BM_DrawGameFrameWave40)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
