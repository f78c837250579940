#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test: on the host with AddressSanitizer
# and UndefinedBehaviorSanitizer, on the host without them (install test), and as the 32-bit ARM
# build under qemu-arm.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh

step() { printf '\n=== %s\n' "$*"; }

step "format"
git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror

for preset in sanitize host armhf; do
  step "$preset: build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  step "$preset: tests"
  ctest --preset "$preset"
done
