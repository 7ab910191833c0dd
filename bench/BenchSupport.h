// Helpers shared by the benchmark sources: each registered operation runs once per
// iteration and reports its heap allocations per iteration as the counter "allocs".
#ifndef RVA_BENCH_SUPPORT_H
#define RVA_BENCH_SUPPORT_H

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

#include "AllocationCount.h"

namespace bench {

template <typename T>
void keep(T&& value) {
    benchmark::DoNotOptimize(value);
}

// Runs `op` once per iteration and reports the heap allocations per iteration.
template <typename Op>
void counted(benchmark::State& state, Op op) {
    const std::size_t before = allocationCount();
    for (auto _ : state) {
        op();
    }
    state.counters["allocs"] =
        benchmark::Counter(double(allocationCount() - before), benchmark::Counter::kAvgIterations);
}

// Registers `op` as the benchmark "<operation>/<side>"; scripts/bench.sh groups the sides
// of an operation into one row or one block of rows.
template <typename Op>
void add(const std::string& operation, const std::string& side, Op op) {
    benchmark::RegisterBenchmark((operation + "/" + side).c_str(),
                                 [op](benchmark::State& state) { counted(state, op); });
}

// Registers the SDP benchmarks (SdpParseBench.cpp). False, after printing why, when a
// peer parser does not read a text as rvasdp does, or when the allocation count would
// miss some of a peer's allocations: the figures would then compare different work.
bool registerSdpBenchmarks();

}  // namespace bench

#endif  // RVA_BENCH_SUPPORT_H
