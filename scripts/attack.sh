#!/usr/bin/env bash
# The long attacks, which ./test.sh leaves out: the thorough forms of the tests in tests/attacks, under the sanitizers and as
# delivered, every world of the corpus damaged at every STEPth byte through the whole import and through writing, and every
# fuzz target for a while. Takes an hour or more on two cores with the defaults. Exit status 1 when anything broke.
#
# usage: scripts/attack.sh [STEP [SECONDS [CORPUS]]]      997; 900 seconds of fuzzing for each target, 0 for none; tests/corpus
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
corpus=${3:-$root/tests/corpus}
build=$root/build
status=0

attack() { # TITLE COMMAND...
  printf '\n== %s (after %d s)\n' "$1" "$SECONDS"
  "${@:2}" || status=1
}

"$root/scripts/install-packages.sh" build test || exit 2
for preset in asan release; do
  cmake -S "$root" --preset "$preset" --log-level=WARNING >/dev/null &&
    cmake --build "$build/$preset" -j "$(nproc)" --target wrl modelwrl test_attacks || exit 2
  attack "thorough attacks, $preset" env WRL_LONG_ATTACKS=1 "$build/$preset/bin/test_attacks" --gtest_brief=1
done
for command in check scene nodes; do
  attack "damaged worlds, $command" python3 "$root/tests/corpus/damage.py" --wrl "$build/asan/bin/wrl" \
    --corpus "$corpus" --step "$step" --command "$command" --seconds 60
done
[ "$seconds" -eq 0 ] || attack "fuzzing" "$root/fuzz/run.sh" "$seconds"
exit "$status"
