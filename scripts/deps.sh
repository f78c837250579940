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

want=("${host_packages[@]}")
[ "${1:-}" = "--host-only" ] || want+=("${armhf_packages[@]}")
exec "$(dirname "$0")/install-packages.sh" "${want[@]}"
