#!/usr/bin/env bash
# Runs every test: the unit tests directly, the few GUI tests under a virtual
# X server. The server must not reset when a test's last connection closes,
# or the next test may find it unreachable.
set -euo pipefail
build=${1:-build}
# Whatever the outcome, the last line says how much of the code is tests.
trap '"$(dirname "$0")/test-share.sh"' EXIT
ctest --test-dir "$build" --output-on-failure -LE gui -j"$(nproc)"
if ctest --test-dir "$build" -N -L gui | grep -q 'Total Tests: [1-9]'; then
  xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" ctest --test-dir "$build" --output-on-failure -L gui
fi
