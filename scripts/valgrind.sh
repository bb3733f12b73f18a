#!/usr/bin/env bash
# Runs the module's own unit tests under valgrind's memcheck, on every core: it finds reads of memory that was never written,
# which gcc's sanitizers do not see, and leaks, in optimised code; nodes come from the usual allocator, so that it sees each. The
# last line is 'N passed, N failed' over the tests, where what memcheck complains of in one part of a program counts as one
# failure; exit status 1 when any failed. Takes minutes. Works on a bare Debian 12: packages that are missing are installed.
#
# usage: scripts/valgrind.sh [PROGRAM...]      test_image and the like; all of the module's own by default
set -uo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/valgrind
parts=4 # that each program's tests are dealt out to, so that no core waits long for another

case "${1-}" in
  -h | --help)
    sed -n '/^# usage/s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
    ;;
esac
programs=("$@")
[ ${#programs[@]} -gt 0 ] || programs=(test_vrml_reader test_vrml_nodes test_vrml_fields test_import test_import_host_calls
  test_export test_entry test_image)

# Counts the pages of a block that is allocated but never touched; memcheck touches what calloc gives.
leftOut='FileGIF89a.takes_no_memory_for_what_is_only_claimed'

"$root/scripts/install-packages.sh" build test valgrind || exit 2
cmake -S "$root" --preset valgrind --log-level=WARNING >/dev/null &&
  cmake --build "$build" -j "$(nproc)" --target modelwrl "${programs[@]}" || exit 2

# Writes how many tests passed and how many failed to PROGRAM.PART.count. Tests of failing memory bring an operator new of
# their own, which memcheck would replace if it were not told to take malloc alone from a program.
runPart() { # PROGRAM PART
  local name=$1.$2 status=0 passed failed
  local log=$build/$name.log
  GTEST_TOTAL_SHARDS=$parts GTEST_SHARD_INDEX=$2 valgrind --quiet --leak-check=full --error-exitcode=99 \
    --soname-synonyms=somalloc=nouserintercepts "$build/bin/$1" "--gtest_filter=-$leftOut" >"$log" 2>&1 || status=$?
  passed=$(sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?\.$/\1/p' "$log")
  failed=$(sed -nE 's/^\[  FAILED  \] ([0-9]+) tests?, listed below:$/\1/p' "$log")
  # Without a test that failed it is memcheck's complaint, or an end before the end.
  if [ "$status" -ne 0 ] && [ "${failed:-0}" -eq 0 ]; then failed=1; fi
  if [ "${failed:-0}" -eq 0 ]; then
    echo "ok   $name (after $(($(date +%s) - start)) s)"
  else
    echo "FAIL $name: see $log"
    grep -E '^==[0-9]+==|Failure$|^\[  FAILED  \]' "$log" | head -n 40
  fi
  echo "${passed:-0} ${failed:-0}" >"$build/$name.count"
}
export -f runPart
start=$(date +%s)
export build parts leftOut start

# A part that does not come to its end has failed.
rm -f "$build"/*.count
for program in "${programs[@]}"; do
  for ((part = 0; part < parts; ++part)); do echo "0 1" >"$build/$program.$part.count"; done
done
for ((part = 0; part < parts; ++part)); do printf "%s $part\n" "${programs[@]}"; done |
  xargs -P "$(nproc)" -L 1 bash -c 'runPart "$@"' runPart
cat "$build"/*.count | {
  passed=0 failed=0
  while read -r good bad; do passed=$((passed + good)) failed=$((failed + bad)); done
  echo "$passed passed, $failed failed"
  [ "$failed" -eq 0 ]
}
