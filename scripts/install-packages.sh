#!/usr/bin/env bash
# install-packages.sh PACKAGE...: installs the Debian packages of the list that are missing, as
# root or through sudo; an ARCH-qualified name (android-liblog-dev:armhf) adds that architecture.
set -euo pipefail

todo=()
for package in "$@"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
    todo+=("$package")
done
[ ${#todo[@]} -eq 0 ] && exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
for package in "${todo[@]}"; do
  case $package in
    *:*) dpkg --print-foreign-architectures | grep -qx "${package#*:}" ||
      "${sudo[@]}" dpkg --add-architecture "${package#*:}" ;;
  esac
done
# A mirror in mid-sync can fail one index; retry, then go on with what was fetched.
for attempt in 1 2 3; do
  "${sudo[@]}" apt-get update -q && break
  echo "apt-get update failed (attempt $attempt)" >&2
  sleep $((attempt * 5))
done
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -q --no-install-recommends "${todo[@]}"
