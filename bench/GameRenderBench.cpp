// Cost of drawing one game frame as the main loop does (GameScenes::drawFrame: clear, the
// world scene with the sky box, stars, ships, bolts, beams and particles into its target and
// composited, the HUD, the fader, the swap), under the software rasteriser, against an empty
// frame that only clears, composites and swaps with nothing in either scene. The game scenes
// (SessionScene.h) are the session before any wave with 64 bolts and 3 beams in the air, and
// waves 20 and 40 with the crowd round the ship and the explosions at capacity. Between two
// drawn frames the session runs one frame of logic with the timer stopped, so each drawn frame
// shows the next moment.
//
// The empty frame is measured on its own (BM_DrawEmptyFrame) and also inside each game
// benchmark, one empty frame before each game frame with the timer stopped, so that both see
// the same load on the machine: the counters empty_ms and ratio (game frame over empty frame)
// come from those pairs. Every frame ends with glFinish; llvmpipe rasterises on worker threads,
// so the figures are wall-clock time. Needs an X display (Xvfb).
#include "GameScenes.h"
#include "SessionScene.h"

#include "play/GameSession.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double secondsToDraw(const bench::GameScenes& scenes)
{
    const Clock::time_point start = Clock::now();
    scenes.drawFrame();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void BM_DrawEmptyFrame(benchmark::State& state)
{
    if (!bench::openGameWindow(state)) return;
    const bench::GameScenes scenes;
    for (auto _ : state) scenes.drawFrame();
}
BENCHMARK(BM_DrawEmptyFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

void drawGameFrames(benchmark::State& state, int32_t wave)
{
    if (!bench::openGameWindow(state)) return;
    const bench::GameScenes empty; // made first, so the game's scenes below are g_world and g_hud
    const bench::GameScenes game;
    bench::SessionScene scene(wave);
    double emptySeconds = 0.0, gameSeconds = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        scene.nextFrame();
        g_game->frame();
        emptySeconds += secondsToDraw(empty);
        state.ResumeTiming();
        gameSeconds += secondsToDraw(game);
    }
    constexpr double kMsPerSecond = 1000.0;
    state.counters["empty_ms"] =
        benchmark::Counter(emptySeconds * kMsPerSecond, benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = emptySeconds > 0.0 ? gameSeconds / emptySeconds : 0.0;
}

void BM_DrawGameFrameBeforeWaves(benchmark::State& state) { drawGameFrames(state, 0); }
BENCHMARK(BM_DrawGameFrameBeforeWaves)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_DrawGameFrameWave20(benchmark::State& state) { drawGameFrames(state, 20); }
BENCHMARK(BM_DrawGameFrameWave20)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_DrawGameFrameWave40(benchmark::State& state) { drawGameFrames(state, 40); }
BENCHMARK(BM_DrawGameFrameWave40)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
