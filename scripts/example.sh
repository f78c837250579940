#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program, then the call set-up of the
# README with rune-sdp: an offer, its answer and the stream the offerer accepts. The two bodies
# stay in build/o.sdp and build/a.sdp.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset host >/dev/null
cmake --build --preset host --target rune_example rune-sdp >/dev/null
rune_sdp=build/host/tools/rune-sdp

heading() {
  printf '\n######## %s\n\n' "$1"
}

heading "The example program: build/host/examples/rune_example"
build/host/examples/rune_example

heading "A call set-up with rune-sdp in three commands"
echo "\$ $rune_sdp offer --address 192.0.2.10 --port 40000 --session-id 3000000001 -o build/o.sdp"
$rune_sdp offer --address 192.0.2.10 --port 40000 --session-id 3000000001 -o build/o.sdp
echo "\$ $rune_sdp answer --address 198.51.100.20 --port 49152 --session-id 4000000002" \
  "build/o.sdp > build/a.sdp"
# The answerer's stream goes to standard error; shown only when answering fails.
if ! log=$($rune_sdp answer --address 198.51.100.20 --port 49152 --session-id 4000000002 \
  build/o.sdp 2>&1 >build/a.sdp); then
  echo "$log" >&2
  exit 1
fi
echo "\$ $rune_sdp accept build/o.sdp build/a.sdp"

heading "build/o.sdp, the offer (lines end in CRLF)"
cat build/o.sdp
heading "build/a.sdp, the answer"
cat build/a.sdp
heading "What accept prints: the stream the offerer sets up"
$rune_sdp accept build/o.sdp build/a.sdp
