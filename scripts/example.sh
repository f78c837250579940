#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset host >/dev/null
cmake --build --preset host --target rune_example >/dev/null
build/host/examples/rune_example
