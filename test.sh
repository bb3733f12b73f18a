#!/usr/bin/env bash
# Runs every test there is: the unit tests under the address and undefined-behaviour sanitizers with leak detection, the
# conformance cases and the corpus against that build and the optimised one, each fuzz target for a short while, and the
# format of the sources. Works on a bare Debian 12: packages that are missing are installed first. The last line is
# 'N passed, N failed' over all of it; exit status 1 when any failed.
set -uo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
jobs=$(nproc)
passed=0
failed=0
output=$(mktemp)
trap 'rm -f "$output"' EXIT
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=print_stacktrace=1
# The renderer's own threads end when the process does, which the search for leaks now and then runs into.
export LP_NUM_THREADS=0 MESA_SHADER_CACHE_DISABLE=true

heading() { # TITLE
  printf '\n== %s (after %d s)\n' "$1" "$SECONDS"
}

count() { # PASSED FAILED
  passed=$((passed + $1))
  failed=$((failed + $2))
}

# One check that passes or fails as a whole.
check() { # TITLE COMMAND...
  heading "$1"
  if "${@:2}"; then
    count 1 0
  else
    count 0 1
    echo "FAIL $1"
    return 1
  fi
}

# A runner that closes with 'N passed, N failed'; one that ends without that line, or badly without a failure, failed.
countRunner() { # TITLE COMMAND...
  heading "$1"
  local status=0 closing
  "${@:2}" >"$output" 2>&1 || status=$?
  grep -vE '^[0-9]+ passed, [0-9]+ failed$' "$output"
  closing=$(tail -n 1 "$output")
  if [[ $closing =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]] && [ $((status != 0)) -eq $((BASH_REMATCH[2] != 0)) ]; then
    echo "$1: $closing"
    count "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
  else
    echo "FAIL $1: exit status $status, no result"
    count 0 1
  fi
}

# The tests of one build, except those labelled "cases", whose runners count for themselves below.
runUnitTests() { # PRESET
  ctest --test-dir "$root/build/$1" -j "$jobs" --output-on-failure --no-tests=error --timeout 300 -LE cases >"$output.ctest" 2>&1
  local status=$?
  grep -vE '^ *Start +[0-9]+:| Passed +[0-9.]+ sec$' "$output.ctest"
  local total bad
  read -r bad total < <(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$output.ctest")
  rm -f "$output.ctest"
  [ -n "${total-}" ] || return 1
  echo "$((total - bad)) passed, $bad failed"
  return "$status"
}

build() { # PRESET [TARGET...]
  local targets=()
  [ $# -eq 1 ] || targets=(--target "${@:2}")
  cmake -S "$root" --preset "$1" --log-level=WARNING && cmake --build "$root/build/$1" -j "$jobs" "${targets[@]}"
}

runCases() { # PRESET
  local wrl="$root/build/$1/bin/wrl"
  countRunner "conformance, $1" python3 "$root/tests/conformance/run.py" --wrl "$wrl" --timeout 300
  countRunner "loop, $1" python3 "$root/tests/loop/run.py" --wrl "$wrl" --timeout 300
  countRunner "corpus, $1" python3 "$root/tests/corpus/run.py" --wrl "$wrl" --timeout 300
}

check "packages" "$root/scripts/install-packages.sh" build test
check "format" "$root/scripts/check-format.sh"
# Of the optimised build what is delivered, and the benchmarks, so that they stay whole; the unit tests come once, where the
# sanitizers watch them.
check "build release" build release wrl modelwrl bench_programs bench_parts && runCases release
if check "build asan" build asan; then
  countRunner "unit tests, asan" runUnitTests asan
  runCases asan
  countRunner "damaged worlds, asan" python3 "$root/tests/corpus/damage.py" --wrl "$root/build/asan/bin/wrl"
fi
countRunner "fuzz targets" "$root/fuzz/run.sh" 20

heading "all"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
