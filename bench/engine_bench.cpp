// The adding machine's own cost: keys in, tape lines and totals out, nothing written to disk.
#include <benchmark/benchmark.h>

#include "core/calc/calculator.h"

namespace {

const zv::common::Regional kBrazil{};

// A million "amount, operator" pairs into a fresh calculator.
void BM_MillionAmountOperatorPairs(benchmark::State& state) {
    for (auto _ : state) {
        zv::calc::Calculator calc(kBrazil);
        for (int i = 0; i < 1'000'000; ++i) {
            calc.type(i % 7 == 6 ? "12,5-" : "1234,56+");
        }
        benchmark::DoNotOptimize(calc.total());
    }
}
BENCHMARK(BM_MillionAmountOperatorPairs)->Unit(benchmark::kMillisecond)->Iterations(3);

// One pair typed onto a tape that already holds `range(0)` lines: the cost must not grow with it.
void BM_PairOnTapeOf(benchmark::State& state) {
    zv::calc::Calculator calc(kBrazil);
    for (int64_t i = 0; i < state.range(0); ++i) {
        calc.type("1234,56+");
    }
    for (auto _ : state) {
        calc.type("12,5+");
    }
    benchmark::DoNotOptimize(calc.total());
    state.counters["lines"] = static_cast<double>(state.range(0));
}
BENCHMARK(BM_PairOnTapeOf)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kNanosecond);

// Operator rewrite, undo and redo at the end of a long tape.
void BM_UndoRedoOnTapeOf(benchmark::State& state) {
    zv::calc::Calculator calc(kBrazil);
    for (int64_t i = 0; i < state.range(0); ++i) {
        calc.type("1234,56+");
    }
    for (auto _ : state) {
        calc.type("-");
        calc.undo();
        calc.redo();
    }
    benchmark::DoNotOptimize(calc.total());
}
BENCHMARK(BM_UndoRedoOnTapeOf)->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kNanosecond);

// Loading a tape works the total out again from every line.
void BM_LoadTapeMillionLines(benchmark::State& state) {
    zv::calc::Calculator source(kBrazil);
    for (int i = 0; i < 1'000'000; ++i) {
        source.type("1234,56+");
    }
    const std::string text = source.tape().text();
    for (auto _ : state) {
        zv::calc::Calculator calc(kBrazil);
        calc.loadTape(text);
        benchmark::DoNotOptimize(calc.total());
    }
}
BENCHMARK(BM_LoadTapeMillionLines)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
