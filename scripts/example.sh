#!/usr/bin/env bash
# Installs what is missing, builds, and runs the example program, then the rune-sdp commands of the
# README: a call set-up (an offer, its answer and the stream the offerer accepts), a hold and a
# resume, and a VoLTE handset's offer with QoS preconditions. The bodies stay in build/.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/deps.sh --host-only
cmake --preset host >/dev/null
cmake --build --preset host --target rune_example rune-sdp >/dev/null
rune_sdp=build/host/tools/rune-sdp

heading() {
  printf '\n######## %s\n\n' "$1"
}

# Shows a command, then runs it.
run() {
  echo "\$ $*"
  "$@"
}

# Shows and runs an answer into the file $1; the negotiated stream it writes to standard error is
# shown only when answering fails, and the precondition rows that follow the stream's check always.
answer_to() {
  local out=$1 log
  shift
  echo "\$ $rune_sdp answer $* > $out"
  if ! log=$($rune_sdp answer "$@" 2>&1 >"$out"); then
    echo "$log" >&2
    exit 1
  fi
  sed '1,/^Success$/d' <<<"$log"
}

# Shows the body in the file $1 under the heading $2.
body() {
  heading "$1: $2"
  cat "$1"
}

heading "The example program: build/host/examples/rune_example"
build/host/examples/rune_example

heading "A call set-up in three commands"
run $rune_sdp offer --address 192.0.2.10 --port 40000 --session-id 3000000001 -o build/o.sdp
answer_to build/a.sdp --address 198.51.100.20 --port 49152 --session-id 4000000002 build/o.sdp
body build/o.sdp "the offer (lines end in CRLF)"
body build/a.sdp "the answer"
heading "What accept prints: the stream the offerer sets up"
echo "\$ $rune_sdp accept build/o.sdp build/a.sdp"
agreed=$($rune_sdp accept build/o.sdp build/a.sdp)
echo "$agreed"

heading "A hold and a resume in five more commands"
run $rune_sdp offer --our-offer build/o.sdp --their-answer build/a.sdp --direction sendonly \
  -o build/hold.sdp
answer_to build/hold-answer.sdp --their-offer build/o.sdp --our-answer build/a.sdp build/hold.sdp
run $rune_sdp offer --our-offer build/hold.sdp --their-answer build/hold-answer.sdp \
  -o build/resume.sdp
answer_to build/resume-answer.sdp --their-offer build/hold.sdp --our-answer build/hold-answer.sdp \
  build/resume.sdp
body build/hold.sdp "the hold re-offer"
body build/hold-answer.sdp "its answer"
body build/resume.sdp "the resume re-offer"
body build/resume-answer.sdp "its answer"
heading "What accept prints after the resume"
echo "\$ $rune_sdp accept build/resume.sdp build/resume-answer.sdp"
resumed=$($rune_sdp accept build/resume.sdp build/resume-answer.sdp)
if [ "$resumed" = "$agreed" ]; then
  echo "(the stream of the call set-up again, line for line: full duplex, not held)"
else
  echo "$resumed"
fi

heading "VoLTE preconditions: the answer to a handset's offer, its rows, and this side's UPDATE"
answer_to build/volte-answer.sdp --address 198.51.100.20 --port 49152 --session-id 4000000003 \
  --qos-strength mandatory examples/volte-offer.sdp
run $rune_sdp offer --qos-status sendrecv --their-offer examples/volte-offer.sdp \
  --our-answer build/volte-answer.sdp -o build/volte-update.sdp
body build/volte-answer.sdp "the answer"
body build/volte-update.sdp "the UPDATE's offer, once this side's reservation is done"
