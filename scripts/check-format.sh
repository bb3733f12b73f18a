#!/usr/bin/env bash
# Says which sources are not formatted as .clang-format asks; with --fix formats them. Exit status 1 when any was found.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

mode=(--dry-run -Werror)
[ "${1-}" != --fix ] || mode=(-i)
find . -path './build*' -prune -o -type f \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 -r -n 40 clang-format-14 "${mode[@]}"
