#!/usr/bin/env bash
# Builds the libFuzzer targets (preset fuzz, clang) and runs each one for SECONDS (default 60)
# from its kept corpus, fuzz/corpus/<name>/. Any finding (crash, failed invariant, leak, undefined
# behaviour, timeout) fails the run; its input is left in build/fuzz/findings/.
#
#   scripts/fuzz.sh [--check] [--minimise] [SECONDS] [NAME...]
#
# NAMEs (model, sdp) pick targets; all by default. Inputs that reach new code are merged into the
# kept corpus (-merge=1), ready to commit; the merge counts edges only, not hit counts, which keeps
# the corpus small. --check leaves the kept corpus untouched (scripts/test.sh). --minimise then
# rewrites each kept corpus as the smallest set of inputs reaching the same edges.
#
# Reading a finding: build/fuzz/fuzz/model_fuzzer FILE (or sdp_fuzzer).
set -euo pipefail
cd "$(dirname "$0")/.."

keep=1
minimise=0
seconds=60
names=()
for argument in "$@"; do
  case $argument in
    --check) keep=0 ;;
    --minimise) minimise=1 ;;
    -*) echo "usage: scripts/fuzz.sh [--check] [--minimise] [SECONDS] [NAME...]" >&2; exit 2 ;;
    *[!0-9]*) names+=("$argument") ;;
    *) seconds=$argument ;;
  esac
done

scripts/deps.sh --host-only
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz >/dev/null

root=$PWD
build=$root/build/fuzz
# The one deliberate leak (a codec clone refused by a stream) is suppressed by name.
export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
if symbolizer=$(command -v llvm-symbolizer); then
  export ASAN_SYMBOLIZER_PATH=$symbolizer
fi

# The library's warnings would flood standard error; libFuzzer and the sanitizers report on a
# descriptor of their own.
options=(-close_fd_mask=3 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1)

status=0
for fuzzer in "$build"/fuzz/*_fuzzer; do
  name=$(basename "$fuzzer" _fuzzer)
  if [ ${#names[@]} -gt 0 ] && [[ " ${names[*]} " != *" $name "* ]]; then
    continue
  fi
  kept=$root/fuzz/corpus/$name
  work=$build/corpus/$name
  log=$build/logs/$name.log
  mkdir -p "$kept" "$build/findings" "$build/logs"
  rm -rf "$work" && mkdir -p "$work"

  # The model fuzzer hits the deliberate leak all the time, and every input that leaks makes
  # LeakSanitizer scan the heap: it looks for leaks no more (the test programs run LSan and
  # valgrind). The SDP fuzzer keeps looking.
  leaks=1
  [ "$name" = model ] && leaks=0
  # A small quarantine: the default 256 MB of freed blocks would be most of the memory, and a use
  # after free is still seen while the block is among the last ones freed.
  export ASAN_OPTIONS="quarantine_size_mb=16:detect_leaks=$leaks"

  printf '%s: %s s from %s inputs\n' "$name" "$seconds" "$(find "$kept" -type f | wc -l)"
  # New inputs go to the first directory, so the kept corpus is only read.
  if ! "$fuzzer" "${options[@]}" -max_total_time="$seconds" \
      -artifact_prefix="$build/findings/$name-" "$work" "$kept" >"$log" 2>&1; then
    grep -v '^"' "$log" | tail -n 60 >&2
    echo "$name: FINDING (log $log, input in $build/findings/)" >&2
    status=1
    continue
  fi
  grep -E '^(Done|stat::(number_of_executed_units|average_exec_per_sec|peak_rss_mb))' "$log" |
    sed "s/^/  /"

  if [ "$keep" -eq 1 ]; then
    "$fuzzer" -merge=1 -use_counters=0 -close_fd_mask=3 "$kept" "$work" >>"$log" 2>&1
  fi
  if [ "$minimise" -eq 1 ]; then
    minimal=$build/minimal/$name
    rm -rf "$minimal" && mkdir -p "$minimal"
    "$fuzzer" -merge=1 -use_counters=0 -close_fd_mask=3 "$minimal" "$kept" >>"$log" 2>&1
    find "$kept" -type f -delete
    cp "$minimal"/* "$kept"/
  fi
  if [ "$keep" -eq 1 ] || [ "$minimise" -eq 1 ]; then
    printf '  kept corpus: %s inputs\n' "$(find "$kept" -type f | wc -l)"
  fi
done
exit $status
