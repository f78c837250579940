#!/usr/bin/env bash
# Guards the ABI of the shared libraries: clients are compiled against the headers and load the
# library later, so exported symbols and the layout of public types must not change by accident.
#
#   scripts/abi.sh check  [host|armhf]...   compares each fresh build with abi/<lib>-<arch>.abi
#   scripts/abi.sh update [host|armhf]...   rewrites the baselines (commit them with the change)
#
# Both platforms by default. The libraries come from the presets' builds (build/host,
# build/armhf), built here when needed; RUNE_ABI_BUILD_HOST and RUNE_ABI_BUILD_ARMHF name other
# build directories configured from the same presets.
#
# A baseline is abidw's description of the library with the types of the public headers only,
# without build paths; check describes the fresh build the same way and fails on any difference
# abidiff finds, added and removed symbols included.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

usage() {
  echo "usage: scripts/abi.sh check|update [host|armhf]..." >&2
  exit 2
}

[ $# -ge 1 ] || usage
mode=$1
shift
case $mode in check | update) ;; *) usage ;; esac
platforms=("$@")
[ ${#platforms[@]} -gt 0 ] || platforms=(host armhf)

# Where each library is built, and its public headers: a type declared elsewhere is private and
# not part of its ABI.
declare -A source_dir=([runecommon]=common [runesdp]=sdp)
declare -A public_headers=([runecommon]="common/include utilities/include"
  [runesdp]="sdp/include common/include utilities/include")

describe() {  # describe LIBRARY.so OUTPUT HEADER-DIR...
  local library=$1 output=$2
  shift 2
  local options=(--no-corpus-path --no-comp-dir-path --no-show-locs --drop-private-types
    --exported-interfaces-only)
  local dir
  for dir in "$@"; do
    options+=(--headers-dir "$dir")
  done
  abidw "${options[@]}" --out-file "$output" "$library"
  # Translation units are named by their source paths: keep them relative to the project.
  sed -i "s#path='$root/#path='#g" "$output"
}

status=0
for platform in "${platforms[@]}"; do
  case $platform in
    host) arch=$(uname -m) build=${RUNE_ABI_BUILD_HOST:-build/$platform} ;;
    armhf) arch=armhf build=${RUNE_ABI_BUILD_ARMHF:-build/$platform} ;;
    *) usage ;;
  esac
  cmake --preset "$platform" -B "$build" >/dev/null
  cmake --build "$build" --parallel 2 --target runecommon >/dev/null
  libraries=(runecommon)
  if [ -f sdp/CMakeLists.txt ]; then
    cmake --build "$build" --parallel 2 --target runesdp >/dev/null
    libraries+=(runesdp)
  fi

  for library in "${libraries[@]}"; do
    so=$build/${source_dir[$library]}/lib$library.so
    baseline=abi/$library-$arch.abi
    read -ra headers <<<"${public_headers[$library]}"
    if [ "$mode" = update ]; then
      mkdir -p abi
      describe "$so" "$baseline" "${headers[@]}"
      echo "abi: wrote $baseline"
      continue
    fi
    if [ ! -f "$baseline" ]; then
      echo "abi: $baseline is missing: run scripts/abi.sh update and commit it" >&2
      status=1
      continue
    fi
    fresh=$(mktemp)
    describe "$so" "$fresh" "${headers[@]}"
    if abidiff "$baseline" "$fresh" >"$fresh.diff" 2>&1; then
      echo "abi: $library ($arch) matches $baseline"
    else
      cat "$fresh.diff" >&2
      echo "abi: $library ($arch) differs from $baseline; an intended change runs" \
        "scripts/abi.sh update and commits the new baseline with it" >&2
      status=1
    fi
    rm -f "$fresh" "$fresh.diff"
  done
done
exit $status
