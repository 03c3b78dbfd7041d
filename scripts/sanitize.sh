#!/usr/bin/env bash
# The unit tests built with the address and undefined-behaviour sanitizers, in
# their own build folder (default build-asan), and run. Any report of either
# sanitizer fails the run: UBSan is made to stop at its first finding.
#
#   scripts/sanitize.sh [BUILD]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build-asan}
flags="-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all"
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug "${launcher[@]}" \
  -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" >/dev/null
cmake --build "$build" -j"$(nproc)"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --test-dir "$build" -L unit -j"$(nproc)" --output-on-failure
