#!/usr/bin/env bash
# Prints the share of test code: non-blank, non-comment lines of the .cpp and .h
# files under tests/ against those of every other source folder. Build folders
# (any folder named build*) and .git are not counted.
set -euo pipefail
cd "$(dirname "$0")/.."

# Lines that hold code: blank lines, // lines and the inside of /* */ blocks
# are left out.
code_lines() {
  awk '
    in_block { if ($0 ~ /\*\//) { in_block = 0; sub(/.*\*\//, "") } else next }
    /^[ \t]*\/\*/ && !/\*\// { in_block = 1; next }
    /^[ \t]*\/\*.*\*\/[ \t]*$/ { next }
    /^[ \t]*\/\// { next }
    /^[ \t]*$/ { next }
    { n++ }
    END { print n + 0 }'
}

sources() {
  find . \( -name '.git' -o -name 'build*' -type d \) -prune -o \
    -type f \( -name '*.cpp' -o -name '*.h' \) -print
}

tests=$(sources | grep '^\./tests/' | xargs cat | code_lines)
production=$(sources | grep -v '^\./tests/' | xargs cat | code_lines)
share=$(( (100 * tests + production / 2) / production ))
echo "tests: $tests lines, production: $production lines, share $share%"
