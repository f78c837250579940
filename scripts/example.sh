#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program, then rune-sdp: the stream the
# sample VoLTE offer describes, its answer with the default local capabilities, and a whole call
# set-up in three commands (offer, answer, accept), the bodies in a temporary folder.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset host >/dev/null
cmake --build --preset host --target rune_example rune-sdp >/dev/null
rune_sdp=build/host/tools/rune-sdp
build/host/examples/rune_example
$rune_sdp describe examples/volte-offer.sdp
$rune_sdp answer examples/volte-offer.sdp

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
echo "== rune-sdp offer -o o.sdp"
$rune_sdp offer --address 192.0.2.10 --port 40000 -o "$work/o.sdp"
echo "== rune-sdp answer -o a.sdp o.sdp"
$rune_sdp answer --address 198.51.100.20 --port 49152 -o "$work/a.sdp" "$work/o.sdp"
echo "== rune-sdp accept o.sdp a.sdp"
$rune_sdp accept "$work/o.sdp" "$work/a.sdp"
