// Cost of Stack::push, growth included: a fresh stack of capacity 16 filled to n elements, as
// the scenes' scratch lists are on their first frame.
#include <benchmark/benchmark.h>

#include "core/Stack.h"
#include "math/mat2.h"
#include "math/vec2.h"

namespace {

void BM_StackPushVec2(benchmark::State& state)
{
    const auto n = static_cast<uint32_t>(state.range(0));
    for (auto _ : state) {
        vorlik::Stack<vorlik::vec2> stack;
        for (uint32_t i = 0; i < n; ++i) stack.push(vorlik::vec2(static_cast<float>(i), 1.0f));
        benchmark::DoNotOptimize(stack.data);
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_StackPushVec2)->Arg(16)->Arg(1024)->Arg(65536);

// A list that already grew, reset and refilled every frame: no allocation in the loop.
void BM_StackPushReused(benchmark::State& state)
{
    const auto n = static_cast<uint32_t>(state.range(0));
    vorlik::Stack<vorlik::mat2> stack;
    for (auto _ : state) {
        stack.clear();
        for (uint32_t i = 0; i < n; ++i) stack.push(vorlik::mat2());
        benchmark::DoNotOptimize(stack.data);
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_StackPushReused)->Arg(1024);

} // namespace
