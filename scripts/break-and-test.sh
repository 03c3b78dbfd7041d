#!/usr/bin/env bash
# Breaks the program on purpose, one place at a time, and shows which tests
# catch each fault. The places are listed in scripts/break-and-test.list:
#
#   # what the fault is
#   file: path/from/the/top.cpp
#   from: exact text, found once in that file
#   to:   the broken text
#
# For each place the file is changed, the build is brought up to date, the unit
# tests run (then the GUI tests under Xvfb if no unit test failed), and the file
# is put back byte for byte, whatever happens. Ends with status 1 if any fault
# went uncaught.
#
#   scripts/break-and-test.sh [BUILD]      (default: build, configured already)
set -uo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
list=scripts/break-and-test.list
[ -d "$build" ] || { echo "no build folder $build: configure and build first" >&2; exit 2; }

backup=""
target=""
restore() { if [ -n "$backup" ]; then cp "$backup" "$target"; rm -f "$backup"; backup=""; fi; }
trap 'restore; exit 130' INT TERM
trap restore EXIT

# Prints the names of the failing tests of one ctest run, one a line.
failing_tests() {
  ctest --test-dir "$build" "$@" 2>/dev/null |
    sed -n 's/^[[:space:]]*[0-9]* - \(.*\) (\(Failed\|SEGFAULT\|Subprocess aborted\|Timeout\|Exception\|Child aborted\).*/\1/p'
}

# Reads the list into parallel arrays.
mapfile -t entries < <(python3 - "$list" <<'PY'
import sys
what, f, fr = "", None, None
for line in open(sys.argv[1], encoding="utf-8"):
    line = line.rstrip("\n")
    if line.startswith("# "): what = line[2:]
    elif line.startswith("file: "): f = line[6:]
    elif line.startswith("from: "): fr = line[6:]
    elif line.startswith("to:   "):
        print("\x1f".join([what, f, fr, line[6:]]))
PY
)

uncaught=0
n=0
for entry in "${entries[@]}"; do
  IFS=$'\x1f' read -r what file from to <<<"$entry"
  n=$((n + 1))
  echo "[$n] $what ($file)"
  count=$(grep -cF -- "$from" "$file" || true)
  if [ "$count" != 1 ]; then
    echo "    the text to break is found $count times in $file: fix the list" >&2
    uncaught=$((uncaught + 1)); continue
  fi
  target=$file
  backup=$(mktemp)
  cp -p "$file" "$backup"
  python3 - "$file" "$from" "$to" <<'PY'
import sys
path, old, new = sys.argv[1:4]
text = open(path, encoding="utf-8").read()
open(path, "w", encoding="utf-8").write(text.replace(old, new, 1))
PY
  if ! cmake --build "$build" -j"$(nproc)" >/dev/null 2>&1; then
    echo "    caught by the compiler (does not build)"
  else
    failed=$(failing_tests -LE gui -j"$(nproc)")
    if [ -z "$failed" ]; then
      failed=$(xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash -c \
        "$(declare -f failing_tests); build=$build; failing_tests -L gui")
    fi
    if [ -z "$failed" ]; then
      echo "    NOT CAUGHT"; uncaught=$((uncaught + 1))
    else
      echo "$failed" | head -5 | sed 's/^/    caught by /'
    fi
  fi
  restore
done
# Leave the build matching the restored sources.
cmake --build "$build" -j"$(nproc)" >/dev/null 2>&1
echo "$n places broken, $((n - uncaught)) caught"
[ "$uncaught" = 0 ]
