// Cost of one draw from the table-driven generator: a load, a store and a mask per call.
#include <benchmark/benchmark.h>

#include "core/Random.h"

namespace {

void BM_RandomNext(benchmark::State& state)
{
    vorlik::Random random(0xD34DB33F);
    for (auto _ : state) benchmark::DoNotOptimize(random.next());
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RandomNext);

void BM_RandomNextFloat(benchmark::State& state)
{
    vorlik::Random random(0xD34DB33F);
    for (auto _ : state) benchmark::DoNotOptimize(random.nextFloat());
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RandomNextFloat);

// Seeding calls rand() 131072 times; the game does it at start-up only.
void BM_RandomSeed(benchmark::State& state)
{
    vorlik::Random random(1);
    unsigned seed = 1;
    for (auto _ : state) {
        random.seed(++seed);
        benchmark::DoNotOptimize(random.ints);
    }
}
BENCHMARK(BM_RandomSeed)->Unit(benchmark::kMicrosecond);

} // namespace
