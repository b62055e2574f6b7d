// Cost of String appends. C text and String appends reallocate whenever the string is full,
// which after the first is nearly every call; single characters grow eight at a time.
#include <benchmark/benchmark.h>

#include "core/String.h"

namespace {

void BM_StringAppendText(benchmark::State& state)
{
    const auto n = state.range(0);
    for (auto _ : state) {
        vorlik::String s;
        for (int64_t i = 0; i < n; ++i) s += "abc";
        benchmark::DoNotOptimize(s.data);
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_StringAppendText)->Arg(16)->Arg(256);

void BM_StringAppendChar(benchmark::State& state)
{
    const auto n = state.range(0);
    for (auto _ : state) {
        // Starting from a text keeps clear of the unterminated append into an empty block.
        vorlik::String s("x");
        for (int64_t i = 0; i < n; ++i) s += 'a';
        benchmark::DoNotOptimize(s.data);
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_StringAppendChar)->Arg(16)->Arg(256);

void BM_StringAppendString(benchmark::State& state)
{
    const auto n = state.range(0);
    const vorlik::String piece("abc");
    for (auto _ : state) {
        vorlik::String s;
        for (int64_t i = 0; i < n; ++i) s += piece;
        benchmark::DoNotOptimize(s.data);
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_StringAppendString)->Arg(16)->Arg(256);

} // namespace
