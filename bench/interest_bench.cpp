// The instalment tool's searches run to the end, as the window runs them between repaints.
#include <benchmark/benchmark.h>

#include "core/tools/interest.h"

namespace {

// The rate for 99 instalments: `range(0)` is the rate that made the instalment, in hundredths
// of a percent, so both ends of the range the tool promises (0,01 % to 50 %) are measured.
void BM_RateSearch99Instalments(benchmark::State& state) {
    const double rate = static_cast<double>(state.range(0)) / 100;
    const zv::tools::LoanTerms terms{1000, 99, 365, false};
    zv::tools::StepSearch pay = zv::tools::instalmentSearch(terms, rate);
    pay.run();
    std::size_t trials = 0;
    for (auto _ : state) {
        zv::tools::StepSearch search = zv::tools::rateSearch(terms, pay.value());
        search.run();
        trials = search.trials();
        benchmark::DoNotOptimize(search.value());
    }
    state.counters["trials"] = static_cast<double>(trials);
}
BENCHMARK(BM_RateSearch99Instalments)->Arg(1)->Arg(250)->Arg(5000)->Unit(benchmark::kMicrosecond);

void BM_InstalmentSearch99Instalments(benchmark::State& state) {
    const zv::tools::LoanTerms terms{1'000'000, 99, 365, false};
    for (auto _ : state) {
        zv::tools::StepSearch search = zv::tools::instalmentSearch(terms, 50);
        search.run();
        benchmark::DoNotOptimize(search.value());
    }
}
BENCHMARK(BM_InstalmentSearch99Instalments)->Unit(benchmark::kMicrosecond);

}  // namespace
