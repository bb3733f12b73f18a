#!/usr/bin/env bash
# The long attacks, which ./test.sh leaves out: the thorough forms of the tests in tests/attacks, every world of the corpus
# damaged at every STEPth byte through the whole import and through writing, and every fuzz target for a while. Takes an
# hour or more on two cores with the defaults. Exit status 1 when anything broke.
#
# usage: scripts/attack.sh [STEP [SECONDS]]      997, and 900 seconds of fuzzing for each target; 0 for none
set -uo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

case "${1-}" in
  -h | --help)
    sed -n '/^# usage/s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
    ;;
esac
step=${1:-997}
seconds=${2:-900}
build=$root/build/asan
status=0

attack() { # TITLE COMMAND...
  printf '\n== %s (after %d s)\n' "$1" "$SECONDS"
  "${@:2}" || status=1
}

"$root/scripts/install-packages.sh" build test || exit 2
cmake -S "$root" --preset asan --log-level=WARNING >/dev/null &&
  cmake --build "$build" -j "$(nproc)" --target wrl modelwrl test_attacks || exit 2

attack "thorough attacks" env WRL_LONG_ATTACKS=1 "$build/bin/test_attacks" --gtest_brief=1
for command in check scene nodes; do
  attack "damaged worlds, $command" python3 "$root/tests/corpus/damage.py" --wrl "$build/bin/wrl" --step "$step" \
    --command "$command" --seconds 60
done
[ "$seconds" -eq 0 ] || attack "fuzzing" "$root/fuzz/run.sh" "$seconds"
exit "$status"
