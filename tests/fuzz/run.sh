#!/bin/sh
# Builds all fuzzers and runs each for so many seconds (60 when none are told).
# New inputs gather in the build folder; what stops a fuzzer lies there as crash-*, named in the last lines.
set -eu
seconds=${1:-60}
source=$(cd "$(dirname "$0")/../.." && pwd)
build=${CALIDORA_FUZZ_BUILD:-$source/build-fuzz}

cmake -G Ninja -S "$source" -B "$build" -DCALIDORA_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14
cmake --build "$build" --target fuzzers -j"${CALIDORA_JOBS:-2}"

# Each target keeps a company file of its own; in memory it is not the disk that is measured.
[ -d /dev/shm ] && export TMPDIR=/dev/shm
export QT_QPA_PLATFORM=offscreen
# Where a piece of memory came from is asked for when a finding is replayed, not at each of a million inputs.
export ASAN_OPTIONS="malloc_context_size=0:quarantine_size_mb=16${ASAN_OPTIONS:+:$ASAN_OPTIONS}"
for seeds in "$source"/tests/fuzz/corpus/*/; do
  target=$(basename "$seeds")
  found=$build/corpus/$target
  mkdir -p "$found"
  echo "--- $target, $seconds s ---"
  "$build/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=2048 -timeout=20 -print_final_stats=1 \
    -artifact_prefix="$build/crash-$target-" "$found" "$seeds" 2>"$build/$target.log" || {
    tail -n 40 "$build/$target.log"
    exit 1
  }
  grep -E 'stat::(number_of_executed_units|average_exec_per_sec|new_units_added)' "$build/$target.log"
done
