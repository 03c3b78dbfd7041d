#!/usr/bin/env bash
# Line and branch coverage of each library by the whole test suite.
#
#   scripts/coverage.sh [LIBS] [BUILD]
#
# LIBS is "all" (default) or a list such as "crystal;maps"; only those are
# rebuilt with --coverage, so measuring one library is quick when the others
# come from the compiler cache. BUILD defaults to build-cov. Prints one line a
# library: "<lib>: lines L% (covered/total), branches B% (covered/total)".
# Branches that only throw or that the compiler proved unreachable are left out.
set -uo pipefail
cd "$(dirname "$0")/.."
libs=${1:-all}
build=${2:-build-cov}
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" \
  -DQUELMORA_COVERAGE="$libs" >/dev/null || exit 1
cmake --build "$build" -j"$(nproc)" >/dev/null || { echo "build failed" >&2; exit 1; }
find "$build" -name '*.gcda' -delete
scripts/run-tests.sh "$build" >"$build/coverage-tests.log" 2>&1 ||
  echo "some tests failed: see $build/coverage-tests.log" >&2

if [ "$libs" = all ]; then libs="crystal;maps;plot;toolkit;app;resources"; fi
IFS=';' read -ra wanted <<<"$libs"
for lib in "${wanted[@]}"; do
  gcovr -r . --object-directory "$build" --filter "$lib/" \
    --exclude-throw-branches --exclude-unreachable-branches --json-summary-pretty 2>/dev/null |
    python3 -c '
import json, sys
s = json.load(sys.stdin)
print("%s: lines %.1f%% (%d/%d), branches %.1f%% (%d/%d)" % (sys.argv[1],
      s["line_percent"], s["line_covered"], s["line_total"],
      s["branch_percent"], s["branch_covered"], s["branch_total"]))' "$lib"
done
