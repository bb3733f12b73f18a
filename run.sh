#!/usr/bin/env bash
# Shows both ends of the module, opened at run time: loads each world and prints what it holds, after what the module had
# to say and its statistics; then writes it as VRML97 in a scratch place and prints what that holds when it is loaded.
# Works on a bare Debian 12: packages that are missing are installed, then the release preset is built.
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
wrl="$root/build/release/bin/wrl"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Writes a world as VRML97, and sums up what came out. A world without a scene leaves nothing to write.
showWritten() { # FILE
  if "$wrl" convert --no-stats "$1" "$scratch/written.wrl" 2>"$scratch/messages"; then
    echo "written as VRML97 and loaded again"
    "$wrl" info --no-stats "$scratch/written.wrl" | grep -E '^  (nodes|triangles|materials|bounding box) '
  else
    tail -n 1 "$scratch/messages" | sed "s|^$scratch/||" >&2
    grep -q 'there is no assembly to write$' "$scratch/messages"
  fi
}

status=0
for file in "$@"; do
  if "$wrl" info "$file"; then
    showWritten "$file" || status=$?
  else
    status=1
  fi
done
exit "$status"
