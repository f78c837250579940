#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program, then the call set-up of the
# README with rune-sdp: an offer, its answer and the stream the offerer accepts, then a hold and
# a resume. The bodies stay in build/: o.sdp and a.sdp, hold.sdp and hold-answer.sdp, resume.sdp
# and resume-answer.sdp.
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

heading "A hold and a resume in five more commands"
# Runs an answer, its stream (standard error) shown only when answering fails.
answer_to() {
  local out=$1
  shift
  echo "\$ $rune_sdp answer $* > $out"
  if ! log=$($rune_sdp answer "$@" 2>&1 >"$out"); then
    echo "$log" >&2
    exit 1
  fi
}
echo "\$ $rune_sdp offer --our-offer build/o.sdp --their-answer build/a.sdp --direction sendonly" \
  "-o build/hold.sdp"
$rune_sdp offer --our-offer build/o.sdp --their-answer build/a.sdp --direction sendonly \
  -o build/hold.sdp
answer_to build/hold-answer.sdp --their-offer build/o.sdp --our-answer build/a.sdp build/hold.sdp
echo "\$ $rune_sdp offer --our-offer build/hold.sdp --their-answer build/hold-answer.sdp" \
  "-o build/resume.sdp"
$rune_sdp offer --our-offer build/hold.sdp --their-answer build/hold-answer.sdp -o build/resume.sdp
answer_to build/resume-answer.sdp --their-offer build/hold.sdp --our-answer build/hold-answer.sdp \
  build/resume.sdp
echo "\$ $rune_sdp accept build/resume.sdp build/resume-answer.sdp"

heading "build/hold.sdp, the hold re-offer"
cat build/hold.sdp
heading "build/hold-answer.sdp, its answer"
cat build/hold-answer.sdp
heading "build/resume.sdp, the resume re-offer"
cat build/resume.sdp
heading "build/resume-answer.sdp, its answer"
cat build/resume-answer.sdp
heading "What accept prints after the resume: the stream of the call set-up again"
$rune_sdp accept build/resume.sdp build/resume-answer.sdp
