#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need; skips what is there.
set -euo pipefail

# The end-to-end test's SIP user agents: host tools, needed in every mode.
"$(dirname "$0")/../tests/e2e/deps.sh"

# libgstreamer-plugins-base1.0-dev: GStreamer's SDP parser, which the tests use as an independent
# reader of what the library writes; libsofia-sip-ua-dev: Sofia-SIP's offer/answer engine, which
# the tests use as the other side of whole dialogs. The libraries never link either.
host_packages=(cmake ninja-build g++ pkg-config clang clang-format clang-tidy libclang-rt-dev
  android-liblog-dev googletest libgtest-dev libbenchmark-dev valgrind abigail-tools llvm
  libgstreamer-plugins-base1.0-dev libsofia-sip-ua-dev)
armhf_packages=(g++-arm-linux-gnueabihf qemu-user android-liblog-dev:armhf libgtest-dev:armhf)

missing() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
      echo "$package"
  done
}

want=("${host_packages[@]}")
[ "${1:-}" = "--host-only" ] || want+=("${armhf_packages[@]}")
mapfile -t todo < <(missing "${want[@]}")
[ ${#todo[@]} -eq 0 ] && exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
if ! dpkg --print-foreign-architectures | grep -qx armhf && [ "${1:-}" != "--host-only" ]; then
  "${sudo[@]}" dpkg --add-architecture armhf
fi
# A mirror in mid-sync can fail one index; retry, then go on with what was fetched.
for attempt in 1 2 3; do
  "${sudo[@]}" apt-get update -q && break
  echo "apt-get update failed (attempt $attempt)" >&2
  sleep $((attempt * 5))
done
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -q --no-install-recommends "${todo[@]}"
