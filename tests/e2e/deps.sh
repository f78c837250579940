#!/usr/bin/env bash
# Installs the SIP user agents that the end-to-end test calls (host packages only); skips what is
# there. baresip-core: baresip with its AMR and G.711 modules; sip-tester: SIPp; python3 runs the
# test.
set -euo pipefail
exec "$(dirname "$0")/../../scripts/install-packages.sh" baresip-core sip-tester python3
