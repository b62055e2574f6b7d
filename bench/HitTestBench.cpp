// Cost of the one hit test every shot makes (HitTest::collide), per call: one bolt's step of a
// frame against 300 ships, each tested through its nine wrap images. The ships stand at random
// points of the world, well away from the step, except in the first case four of them, which
// lie by it: three touch the step's box and are sorted by distance, two of those also lie on
// its line and the nearer is hit, with its entry point. In the second case nothing is near.
// No window needed.
#include "base/GameRandom.h"
#include "core/Stack.h"
#include "math/vec2.h"
#include "play/Actor.h"
#include "play/HitTest.h"
#include "play/WorldGeometry.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using vorlik::vec2;

constexpr uint32_t kShips = 300;
constexpr float kShipRadius = 42.0f; // world units, a middle-sized enemy
constexpr float kClearance = 300.0f; // world units: how far the far ships keep from the step
const vec2 kFrom(1000.0f, 1500.0f);  // the step: a bolt at 750 units a second over 16 ms,
const vec2 kTo(1008.5f, 1508.5f);    // 12 units on the diagonal

// Offsets from the step's start of the ships placed by it, in list order: near its line, then
// on it and a little nearer (so the sort moves it first), beside it (its circle reaches the box
// but its centre is farther than its radius from the line), and one clear of the box.
const vec2 kNearShips[] = {vec2(35.0f, 25.0f), vec2(30.0f, 30.0f), vec2(36.8f, -28.3f), vec2(-120.0f, 130.0f)};

class Fleet {
public:
    explicit Fleet(bool shipsByTheStep)
    {
        g_rand.seed(kStaticRandomSeed);
        if (shipsByTheStep)
            for (const vec2& offset : kNearShips) place(kFrom + offset);
        while (list.count < kShips) {
            const vec2 at(g_rand.range(0.0f, kWorldWidth), g_rand.range(0.0f, kWorldHeight));
            if (nearestImageDistance(at) > kClearance) place(at);
        }
    }

    std::vector<std::unique_ptr<Actor>> ships;
    vorlik::Stack<Actor*> list{kShips};

private:
    void place(const vec2& at)
    {
        ships.push_back(std::make_unique<Actor>());
        ships.back()->position = wrapIntoWorld(at);
        ships.back()->radius = kShipRadius;
        list.push(ships.back().get());
    }

    static float nearestImageDistance(const vec2& at)
    {
        vec2 images[kWrapImageCount];
        wrapImages(at, images);
        float nearest = (images[0] - kFrom).length();
        for (const vec2& image : images) nearest = std::min(nearest, (image - kFrom).length());
        return nearest;
    }
};

void collideAmong(benchmark::State& state, bool shipsByTheStep)
{
    Fleet fleet(shipsByTheStep);
    HitTest test;
    if ((test.collide(fleet.list, kFrom, kTo).target != nullptr) != shipsByTheStep) {
        state.SkipWithError("the scene is not as described");
        return;
    }
    for (auto _ : state) {
        const hit_struct hit = test.collide(fleet.list, kFrom, kTo);
        benchmark::DoNotOptimize(hit);
    }
    state.counters["candidates"] = static_cast<double>(test.candidates.count);
}

void BM_CollideStepAmong300ShipsSomeNear(benchmark::State& state) { collideAmong(state, true); }
BENCHMARK(BM_CollideStepAmong300ShipsSomeNear)->Unit(benchmark::kNanosecond);

void BM_CollideStepAmong300ShipsAllFar(benchmark::State& state) { collideAmong(state, false); }
BENCHMARK(BM_CollideStepAmong300ShipsAllFar)->Unit(benchmark::kNanosecond);

} // namespace
