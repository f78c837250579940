#!/usr/bin/env bash
# Installs the SIP user agents that the end-to-end test calls (host packages only); skips what is
# there. baresip-core: baresip with its AMR and G.711 modules; sip-tester: SIPp; python3 runs the
# test.
set -euo pipefail

packages=(baresip-core sip-tester python3)

mapfile -t todo < <(for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
    echo "$package"
done)
[ ${#todo[@]} -eq 0 ] && exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
# A mirror in mid-sync can fail one index; retry, then go on with what was fetched.
for attempt in 1 2 3; do
  "${sudo[@]}" apt-get update -q && break
  echo "apt-get update failed (attempt $attempt)" >&2
  sleep $((attempt * 5))
done
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -q --no-install-recommends "${todo[@]}"
