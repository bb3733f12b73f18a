#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the sources of the dev build. Exit status 1 when it found anything.
#
# usage: scripts/check-tidy.sh [SUBSTRING]      only sources whose path holds the text
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

"$root/scripts/install-packages.sh" build tidy
cmake -S "$root" --preset dev --log-level=WARNING
# The sources of the build that are the project's own, as the build compiles them.
sed -nE 's/^ *"file": "(.*)".*$/\1/p' "$root/build/dev/compile_commands.json" | grep -F -- "${1-}" | sort -u |
  tr '\n' '\0' | xargs -0 -r -n 1 -P "$(nproc)" clang-tidy-14 --quiet --warnings-as-errors='*' -p "$root/build/dev" 2>/dev/null
