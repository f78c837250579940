// Heap allocations per benchmark iteration. AllocationCounter.cpp replaces the program's operator
// new, so that every allocation, the libraries' included, is counted; a benchmark measures its
// loop with an AllocationScope and reports the count as the counter "allocs".
//
//   const AllocationScope scope;
//   for (auto _ : state) { ... }
//   scope.report(state, kBudget);  // over the budget: the benchmark and the program fail
#ifndef VELMORA_RUNE_BENCH_ALLOCATION_COUNTER_H
#define VELMORA_RUNE_BENCH_ALLOCATION_COUNTER_H

#include <benchmark/benchmark.h>

#include <cstdint>

namespace velmora {
namespace rune {
namespace bench {

// For benchmarks that are expected to allocate: measured only.
constexpr double kNoBudget = 1e9;

// Measures the loop's allocations from here to report().
class AllocationScope {
  public:
    AllocationScope();

    // Allocations per iteration as the counter "allocs"; over the budget, the program fails.
    void report(benchmark::State& state, double budget) const;

  private:
    uint64_t mStart;
};

// Runs the benchmarks the arguments select; the program's exit status: 2 for an unknown argument,
// 1 when a benchmark allocated over its budget.
int runBenchmarks(int argc, char** argv);

}  // namespace bench
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_BENCH_ALLOCATION_COUNTER_H
