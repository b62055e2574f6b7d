// Cost of one frame of a full explosion system, per frame: ParticleSystem::update, whose one
// emitter adds 192 fiery particles each 16 ms frame (one ship's explosion), then the vertex
// building of the slice holding all 4096 live particles (drawBatches), sent to a sink that only
// counts the vertices, so no GL and no window. The emission outruns the particles' lives, so
// the ring stays full: every record lives in the slice and each emission recycles the oldest.
// The slice is drawn in one view copy, as away from the world's seam.
#include "base/GameRandom.h"
#include "math/mat2.h"
#include "math/vec2.h"
#include "math/vec4.h"
#include "platform/Vorlik.h"
#include "scene/ParticleBatchSink.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/SceneState.h"
#include "scene/ViewRect.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using vorlik::Vorlik;

constexpr uint32_t kCapacity = 4096;     // particles, as the session's explosion system
constexpr uint32_t kRate = 12000;        // particles a second: 192 in each 16 ms frame
constexpr uint32_t kFrameMs = 16;
constexpr uint32_t kStartMs = 100000;    // the clock when the system starts
constexpr uint32_t kFillFrames = 100;    // 1.6 s: longer than any particle lives
const vorlik::vec2 kCentre(2048.0f, 2048.0f);

// Counts what a slice would draw.
class VertexCounter : public ParticleBatchSink {
public:
    void beginSlice(vorlik::Texture*) override {}
    void drawBatch(const ParticleSlice::Vertex* vertices, uint32_t count, const vorlik::mat2&) override
    {
        benchmark::DoNotOptimize(vertices[count - 1]);
        this->vertices += count;
        ++batches;
    }

    uint64_t vertices = 0;
    uint64_t batches = 0;
};

// A steady fire at the centre of the world: the look of a ship's explosion, fed continuously.
void setFire(ParticleEmitter& fire)
{
    fire.colorA = vorlik::vec4(0.6f, 0.2f, 0.05f, 1.0f);
    fire.colorB = vorlik::vec4(0.9f, 0.3f, 0.1f, 1.0f);
    fire.position = kCentre;
    fire.lifeMin = 500.0f;
    fire.lifeMax = 1200.0f;
    fire.speedMin = 0.0f;
    fire.speedMax = 400.0f;
    fire.sizeStartMin = 26.0f;
    fire.sizeStartMax = 40.0f;
    fire.sizeEndMin = 0.0f;
    fire.sizeEndMax = 8.0f;
    fire.spread = 360.0f;
    fire.radius = 32.0f;
    fire.rate = kRate;
    fire.lastEmit = Vorlik::currentTime;
}

void BM_ParticleFrame4096(benchmark::State& state)
{
    g_rand.seed(kStaticRandomSeed);
    ParticleSystem::random.seed(kStaticRandomSeed);
    Vorlik::currentTime = kStartMs;
    Vorlik::sync = kFrameMs * 0.001f;

    ParticleSystem system(kCapacity);
    std::unique_ptr<ParticleSlice> slice(system.createSlice(ParticleSystem::kStayWhenEmpty, ParticleSystem::kKeepWhenEmpty));
    setFire(*system.createEmitter(slice.get()));

    vorlik::Stack<ViewRect> views;
    views.push(ViewRect{-640.0f, -360.0f, 1280.0f, 720.0f, vorlik::vec2(0.0f, 0.0f)});
    SceneState scene{};
    scene.views = &views;
    scene.transform.translate(-kCentre.x, -kCentre.y);

    VertexCounter counter;
    const auto frame = [&] {
        Vorlik::currentTime += kFrameMs;
        system.update();
        slice->drawBatches(scene, counter);
    };
    for (uint32_t i = 0; i < kFillFrames; ++i) frame();
    if (slice->count != kCapacity) {
        state.SkipWithError("the ring is not full");
        return;
    }
    counter = VertexCounter();
    for (auto _ : state) frame();
    state.counters["live"] = static_cast<double>(slice->count);
    state.counters["vertices"] =
        benchmark::Counter(static_cast<double>(counter.vertices), benchmark::Counter::kAvgIterations);
    state.counters["batches"] =
        benchmark::Counter(static_cast<double>(counter.batches), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_ParticleFrame4096)->Unit(benchmark::kMicrosecond);

} // namespace
