#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program, then rune-sdp on the sample
# VoLTE offer.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset host >/dev/null
cmake --build --preset host --target rune_example rune-sdp >/dev/null
build/host/examples/rune_example
build/host/tools/rune-sdp describe examples/volte-offer.sdp
