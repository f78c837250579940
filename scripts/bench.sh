#!/usr/bin/env bash
# Builds the benchmarks optimised (preset bench) and runs them, the model's then the SDP
# operations': time and heap allocations per iteration ("allocs") of each. Arguments go to both
# benchmark programs, for example --benchmark_filter=Stream or --benchmark_repetitions=5.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset bench >/dev/null
cmake --build --preset bench --target rune_benchmarks rune_sdp_benchmarks >/dev/null
build/bench/bench/rune_benchmarks "$@"
build/bench/bench/rune_sdp_benchmarks "$@"
