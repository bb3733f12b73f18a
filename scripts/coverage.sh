#!/usr/bin/env bash
# Builds the tests with counters in the code, runs them, and reports which lines and branches of the module they reach: the
# files that are not reached whole, then the figures of each folder and of all. Branches that only an exception takes do not
# count. Works on a bare Debian 12: packages that are missing are installed.
#
# usage: scripts/coverage.sh [--report | --html]      --report: of the last run; --html: line by line, in build/coverage/report
set -uo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/coverage
folders=(vrml/fields vrml/nodes vrml/reader image import export)
tests=(test_vrml_fields test_vrml_nodes test_vrml_reader test_image test_import test_export test_entry test_attacks)
seeds=(seeds_read seeds_round_trip seeds_import seeds_field_text seeds_gif seeds_targa seeds_stage seeds_paths)

buildAndRun() {
  cmake -S "$root" --preset coverage --log-level=WARNING >/dev/null &&
    cmake --build "$build" -j "$(nproc)" --target wrl modelwrl "${tests[@]}" "${seeds[@]}" || return 2
  find "$build" -name '*.gcda' -delete
  local status=0 test
  for test in "${tests[@]}"; do
    "$build/bin/$test" --gtest_brief=1 >"$build/$test.log" 2>&1 || { echo "FAIL $test: see $build/$test.log"; status=1; }
  done
  ctest --test-dir "$build" -R '^fuzz\.' >"$build/seeds.log" 2>&1 || { echo "FAIL seeds: see $build/seeds.log"; status=1; }
  python3 "$root/tests/conformance/run.py" --wrl "$build/bin/wrl" --timeout 120 | tail -n 1
  python3 "$root/tests/corpus/run.py" --wrl "$build/bin/wrl" --timeout 120 | tail -n 1
  return "$status"
}

# What was counted once is reported many times.
report() { # OPTION...
  gcovr --root "$root" --add-tracefile "$build/coverage.json" "$@"
}

figures() { # TITLE OPTION...
  printf '%-12s %s\n' "$1" "$(report "${@:2}" --print-summary -o "$build/files.txt" | grep -E '^(lines|branches)' | tr '\n' ' ')"
}

"$root/scripts/install-packages.sh" build test coverage || exit 2
status=0
case "${1-}" in
  "" | --html) buildAndRun || status=$? ;;
  --report) ;;
  *)
    sed -n '/^# usage/s/^# //p' "${BASH_SOURCE[0]}"
    exit 2
    ;;
esac
[ "$status" -lt 2 ] || exit "$status"
gcovr --root "$root" --object-directory "$build" --exclude-throw-branches --exclude-unreachable-branches \
  "${folders[@]/#/--filter=$root/}" --json "$build/coverage.json" "$build" 2>"$build/gcovr.log" || exit 2
if [ "${1-}" = --html ]; then
  mkdir -p "$build/report" && report --html-details "$build/report/index.html"
fi
echo "== lines that no test reaches"
report | grep -E '^[a-z]+/' | grep -v ' 100%' || echo none
echo "== figures"
for folder in "${folders[@]}"; do figures "$folder" --filter "$root/$folder/"; done
figures all
exit "$status"
