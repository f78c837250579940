#!/usr/bin/env bash
# session-cost.sh PREFIX [OFFER]: instructions and heap allocations per call of the Session's hold
# re-offer and its answer to the peer's hold re-offer, for the package installed at PREFIX, counted
# as ../shared/tools/sdp-cost counts the other operations (valgrind, 1100 calls less 100; default
# offer: the VoLTE offer beside sdp-cost).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
prefix=$(cd "${1:?usage: session-cost.sh PREFIX [OFFER]}" && pwd)
offer=$(realpath "${2:-$root/../shared/tools/volte-offer.sdp}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig:$prefix/lib/$(gcc -print-multiarch)/pkgconfig:${PKG_CONFIG_PATH:-}"
g++ -O2 -g -std=c++17 "$root/bench/SessionCost.cpp" -o "$work/driver" \
    $(pkg-config --cflags --libs runesdp) -Wl,-rpath,"$(pkg-config --variable=libdir runesdp)"
instructions() {
    valgrind --tool=callgrind --callgrind-out-file="$work/cg" "$work/driver" "$1" "$offer" "$2" \
        >/dev/null 2>&1
    awk '/^(summary|totals):/ {print $2; exit}' "$work/cg"
}
allocations() {
    valgrind "$work/driver" "$1" "$offer" "$2" 2>&1 |
        sed -n 's/.*total heap usage: \([0-9,]*\) allocs.*/\1/p' | tr -d ,
}
printf '%-12s %12s %12s\n' operation instr/call allocs/call
for mode in hold reanswer; do
    "$work/driver" "$mode" "$offer" 1
    i=$(( ($(instructions "$mode" 1100) - $(instructions "$mode" 100)) / 1000 ))
    a=$(( ($(allocations "$mode" 1100) - $(allocations "$mode" 100)) / 1000 ))
    printf '%-12s %12d %12d\n' "$mode" "$i" "$a"
done
