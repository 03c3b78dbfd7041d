#!/usr/bin/env bash
# Fuzzes the readers of the program, one target after the other on one core:
#   scripts/fuzz.sh [SECONDS] [TARGETS...]
# SECONDS per target (default 600); TARGETS among binary_map ccp4_map
# control_file settings connection_file space_group structure_file (default all). Builds build-fuzz with
# clang when needed. The corpus grows in build-fuzz/corpus/<target>/ from the
# seeds of fuzz/corpus/<target>/ and the program's example and test files;
# crashes, hangs and memory blow-ups are kept in fuzz/findings/<target>/.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build-fuzz
seconds=${1:-600}
[ $# -gt 0 ] && shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(binary_map ccp4_map control_file settings connection_file space_group structure_file)

if [ ! -f "$build/CMakeCache.txt" ]; then
  CC=clang-14 CXX=clang++-14 cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DQUELMORA_FUZZ=ON -DQUELMORA_TESTS=OFF >/dev/null
fi
nice cmake --build "$build" -j2 --target "${targets[@]/%/_fuzz}" >/dev/null

# The example map cut down to a 2 x 2 x 2 grid: the example has no peaks, so
# its head is all but the 48^3 densities; the grid extents open the last 64
# bytes of the head (grid block and density summary).
small_map() {
  local map=$root/examples/nacl.bin
  local head=$(($(stat -c %s "$map") - 48 * 48 * 48 * 4))
  local extents=$((head - 64))
  {
    head -c "$extents" "$map"
    printf '\2\0\0\0\2\0\0\0\2\0\0\0'
    dd if="$map" bs=1 skip=$((extents + 12)) count=$((64 - 12 + 8 * 4)) status=none
  } >"$1/small.bin"
}

# Each case of the readers' test file as a seed, behind a first byte that
# names its reader as the target reads it: d, e, f, g (100 to 103) are VTL,
# CIF, SHELX and KDC modulo 4.
structure_seeds() {
  awk -v dir="$1" '
    /^=== / { split($0, f, "|"); gsub(/ /, "", f[2]); n++
              file = dir "/case" n; printf "%c", 100 + (index("vtl cif shx kdc", f[2]) - 1) / 4 > file; next }
    /^#/ { next }
    n { print > file }' "$root/tests/data/crystal/structure_files.txt"
}

seed() {
  local target=$1 corpus=$2
  if [ -d "$root/fuzz/corpus/$target" ]; then cp "$root/fuzz/corpus/$target"/* "$corpus"/; fi
  case $target in
    binary_map) small_map "$corpus" ;;
    ccp4_map) cp "$root/tests/data/maps/ccp4_p21_asu.map" "$corpus"/ ;;
    control_file) cp "$root/examples/nacl.inp" "$root"/tests/data/app/*.inp "$corpus"/ ;;
    settings) cp "$root"/tests/data/app/*.set "$corpus"/ ;;
    structure_file) structure_seeds "$corpus" ;;
  esac
}

for target in "${targets[@]}"; do
  corpus=$build/corpus/$target
  findings=$root/fuzz/findings/$target
  work=$build/fuzz-runs/$target
  mkdir -p "$corpus" "$findings" "$work"
  rm -rf "$work"/scratch_*
  seed "$target" "$corpus"
  before=$(find "$findings" -type f | wc -l)
  started=$SECONDS
  (cd "$work" && nice -n 19 "$build/fuzz/${target}_fuzz" -jobs=1 -max_total_time="$seconds" -timeout=10 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/" "$corpus" >/dev/null 2>&1) || true
  log=$work/fuzz-0.log
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  found=$(($(find "$findings" -type f | wc -l) - before))
  echo "$target: $((SECONDS - started)) s, ${executions:-?} executions, $(find "$corpus" -type f | wc -l) inputs in the corpus," \
    "$found new findings (log: $log)"
done
