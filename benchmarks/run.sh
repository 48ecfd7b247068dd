#!/usr/bin/env bash
# Builds the benchmarks and runs all of them: benchmarks/run.sh [build folder]
#
# First the table of ratios against the engine's own shell, on a company of 1,000 groups, 10,000 instruments and 800,000
# parameter rows that is generated once and kept in the build folder; then the program at rest; then the single pieces.
# Pieces that write are run twice: on the disk, and on a file system in memory, which leaves the program's own part.
cd "$(dirname "$0")/.."
BUILD_FOLDER=${1:-build}
source scripts/common.sh

need "${build_packages[@]}" "${run_packages[@]}"
cmake -S . -B "$build_folder" -G Ninja -DCALIDORA_BENCHMARKS=ON >/dev/null
build calidora calidora-catalogue calidora-instrument calidora-generate-company calidora-side-by-side \
  calidora-operators calidora-find-side-by-side calidora-plant-side-by-side calidora-copy-side-by-side calidora-exchange-side-by-side \
  calidora-history-side-by-side calidora-events-side-by-side calidora-benchmarks

company=$build_folder/benchmarks/Large.mdb
if [ ! -f "$company" ]; then
  say "generating the large company"
  "$build_folder/benchmarks/calidora-generate-company" catalogue/schema.sql "$company"
fi

say "side by side; load of the machine: $(cut -d' ' -f1-3 /proc/loadavg) on $(nproc) processors"
"$build_folder/benchmarks/calidora-side-by-side" "$company"
"$build_folder/benchmarks/calidora-operators" "$company"
"$build_folder/benchmarks/calidora-find-side-by-side" "$company"
"$build_folder/benchmarks/calidora-plant-side-by-side" "$company"
"$build_folder/benchmarks/calidora-copy-side-by-side" "$company"
"$build_folder/benchmarks/calidora-exchange-side-by-side" "$company"
"$build_folder/benchmarks/calidora-history-side-by-side" "$company" "$build_folder/benchmarks/history"
"$build_folder/benchmarks/calidora-events-side-by-side" "$build_folder/benchmarks/logs"
BUILD_FOLDER=$build_folder benchmarks/idle.sh
need "${screen_packages[@]}"
BUILD_FOLDER=$build_folder benchmarks/startup.sh

pieces=$build_folder/benchmarks/calidora-benchmarks
line='bankOf|readOf'
say "single pieces"
"$pieces" --benchmark_filter="-$line" --benchmark_counters_tabular=true 2>/dev/null
say "the line in virtual time, company on the disk"
"$pieces" --benchmark_filter="$line" --benchmark_counters_tabular=true 2>/dev/null
if [ -w /dev/shm ]; then
  say "the line in virtual time, company in memory"
  TMPDIR=/dev/shm "$pieces" --benchmark_filter="$line" --benchmark_counters_tabular=true 2>/dev/null
fi
