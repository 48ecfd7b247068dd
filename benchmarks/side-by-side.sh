#!/bin/sh
# The program against the engine's own shell, on a company of 1,000 groups, 10,000 instruments and 800,000 parameter
# rows: benchmarks/side-by-side.sh <build folder> [company file]
# A company file that does not exist is generated; without one a temporary file is used.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
build=${1:?usage: side-by-side.sh <build folder> [company file]}
if [ $# -ge 2 ]; then
    company=$2
else
    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' EXIT
    company=$folder/Large.mdb
fi
[ -f "$company" ] || "$build/benchmarks/calidora-generate-company" "$here/../catalogue/schema.sql" "$company"
"$build/benchmarks/calidora-side-by-side" "$company"
