#!/usr/bin/env bash
# Builds the fuzz targets and runs each for a while, two at a time. What breaks one is kept as fuzz/findings/TARGET/...,
# where the ordinary tests run it from then on; what reaches new code is kept in the build folder for the next run.
# The last line is 'N passed, N failed' over the targets; exit status 1 when anything was found. Works on a bare Debian 12:
# packages that are missing are installed.
#
# usage: fuzz/run.sh [SECONDS [TARGET...]]      60 seconds each, all targets
set -uo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

case "${1-}" in
  -h | --help)
    sed -n '/^# usage/s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
    ;;
esac
seconds=${1:-60}
targets=("${@:2}")
[ ${#targets[@]} -gt 0 ] || targets=(read import round_trip field_text gif targa stage paths)

build=$root/build/fuzz
"$root/scripts/install-packages.sh" build test || exit 2
cmake -S "$root" --preset fuzz --log-level=WARNING >/dev/null &&
  cmake --build "$build" -j "$(nproc)" --target "${targets[@]/#/fuzz_}" || exit 2
python3 "$root/fuzz/cases.py" "$build/cases" || exit 2

export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=print_stacktrace=1
TMPDIR=$(mktemp -d "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")/wrl-fuzz-XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

runTarget() { # TARGET
  local dictionary=() seeds=()
  case $1 in
    read | import | round_trip)
      dictionary=(-dict="$root/fuzz/vrml.dict")
      seeds=("$root/fuzz/seeds/world" "$root/tests/corpus/odd" "$root/examples" "$build/cases/world")
      ;;
    stage)
      dictionary=(-dict="$root/fuzz/stage.dict")
      seeds=("$root/fuzz/seeds/stage" "$build/cases/stage")
      ;;
    gif)
      dictionary=(-dict="$root/fuzz/gif.dict")
      seeds=("$root/tests/conformance/images")
      ;;
    targa) seeds=("$root/tests/conformance/images") ;;
    *) seeds=("$root/fuzz/seeds/$1") ;;
  esac
  mkdir -p "$build/corpus/$1" "$root/fuzz/findings/$1"
  "$build/bin/fuzz_$1" "$build/corpus/$1" "${seeds[@]}" "$root/fuzz/findings/$1" "${dictionary[@]}" \
    -max_total_time="$seconds" -timeout=60 -rss_limit_mb=6000 -malloc_limit_mb=6000 -print_final_stats=1 \
    -artifact_prefix="$root/fuzz/findings/$1/" >"$build/$1.log" 2>&1
  local status=$?
  rmdir --ignore-fail-on-non-empty "$root/fuzz/findings/$1" "$root/fuzz/findings" 2>/dev/null
  local runs
  runs=$(sed -n 's/^stat::number_of_executed_units: //p' "$build/$1.log")
  if [ "$status" -eq 0 ]; then
    echo "ok   $1: ${runs:-0} inputs"
  else
    echo "FAIL $1: see $build/$1.log"
    grep -E '^(SUMMARY|artifact_prefix|.*Test unit written)' "$build/$1.log"
    local input
    sed -n 's/.*Test unit written to //p' "$build/$1.log" | while read -r input; do
      echo "the input in base64: $(base64 -w 0 "$input")"
    done
  fi
}
export -f runTarget
export root build seconds

# A finding among the seeds stops a target early; the others go on.
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -c 'runTarget {}' | tee "$TMPDIR/answers"
passed=$(grep -c '^ok ' "$TMPDIR/answers")
failed=$((${#targets[@]} - passed))
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
