#!/usr/bin/env bash
# Loads worlds through the real module, opened at run time, and prints what each holds, what the module had to say, and
# its statistics. Works on a bare Debian 12: packages that are missing are installed, then the release preset is built.
#
# usage: run.sh [FILE.wrl...]        without a FILE: an example of this project
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)

case "${1-}" in
  -h | --help)
    sed -n '/^# usage/s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
    ;;
esac

# Standard output belongs to the summaries.
{
  "$root/scripts/install-packages.sh" build
  cmake -S "$root" --preset release --log-level=WARNING
  cmake --build "$root/build/release" -j "$(nproc)" --target wrl modelwrl
} >&2

[ $# -gt 0 ] || set -- "$root/examples/garden.wrl"
status=0
for file in "$@"; do
  "$root/build/release/bin/wrl" info "$file" || status=$?
done
exit "$status"
