#!/usr/bin/env bash
# Builds the optimised product and measures it against the yardstick: bare loops that convert the same numbers.
#
# usage: bench/run.sh [--rounds N] [-k SUBSTRING]
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build="$root/build/release"
data="$root/build/bench-data"

{
  "$root/scripts/install-packages.sh" build test
  cmake -S "$root" --preset release --log-level=WARNING
  cmake --build "$build" -j "$(nproc)" --target bench_programs
  python3 "$root/bench/make_inputs.py" "$data"
} >&2

lscpu | sed -n 's/^Model name: *//p'
c++ --version | head -n 1
python3 "$root/bench/compare.py" --bin "$build/bin" --data "$data" --module "$build/lib/modelwrl.so" "$@"
