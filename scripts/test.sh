#!/usr/bin/env bash
# Installs what is missing, then runs every check, in this order: format, clang-tidy, the host
# build with AddressSanitizer and UndefinedBehaviorSanitizer and its tests, the host build and its
# tests (install test and allocation budgets included), valgrind over the host test programs, the
# host ABI, the 32-bit ARM build and its tests under qemu-arm, the ARM ABI, and a short fuzzing
# run. The first failing step ends the run.
set -euo pipefail
cd "$(dirname "$0")/.."

step() { printf '\n=== %s\n' "$*"; }

# Tracked files and new ones not yet committed.
format_check() {
  step "format"
  git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' |
    xargs -0 -r clang-format --dry-run --Werror
}

# The libraries' sources, with the flags of the host build; .clang-tidy picks the checks and the
# headers (public and private) that are looked at through them.
clang_tidy() {
  step "clang-tidy"
  cmake --preset host >/dev/null
  find common/src sdp/src -name '*.cpp' -print0 2>/dev/null | sort -z |
    xargs -0 -r -n 1 -P 2 clang-tidy -p build/host --quiet --warnings-as-errors='*' 2>&1 |
    sed '/^[0-9]* warnings\? generated\.$/d'
}

build_and_test() {
  local preset=$1
  step "$preset: build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  step "$preset: tests"
  ctest --preset "$preset"
}

# Memcheck over the host (non-sanitizer) test programs: no error and no leak, but for the one
# deliberate leak, suppressed by name in tests/valgrind.supp. Death tests abort on purpose and are
# left out: they are named *Death*.
valgrind_tests() {
  local program
  while IFS= read -r program; do
    step "valgrind: ${program#build/host/}"
    valgrind --quiet --error-exitcode=99 --leak-check=full \
      --show-leak-kinds=definite,indirect,possible --errors-for-leak-kinds=definite,indirect,possible \
      --suppressions=tests/valgrind.supp --child-silent-after-fork=yes \
      "$program" --gtest_filter='-*Death*' --gtest_brief=1
  done < <(find build/host/tests -type f -executable -name '*_tests' | sort)
}

abi_check() {
  step "$1: ABI"
  scripts/abi.sh check "$1"
}

# About a minute in all: each fuzzer gets the same share.
fuzz() {
  step "fuzz"
  scripts/fuzz.sh --check 30
}

scripts/deps.sh
format_check
clang_tidy
build_and_test sanitize
build_and_test host
valgrind_tests
abi_check host
build_and_test armhf
abi_check armhf
fuzz
step "all checks passed in $((SECONDS / 60)) min $((SECONDS % 60)) s"
