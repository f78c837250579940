#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program, then rune-sdp on the sample
# VoLTE offer: the stream it describes, and the answer with the default local capabilities.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset host >/dev/null
cmake --build --preset host --target rune_example rune-sdp >/dev/null
build/host/examples/rune_example
build/host/tools/rune-sdp describe examples/volte-offer.sdp
build/host/tools/rune-sdp answer examples/volte-offer.sdp
