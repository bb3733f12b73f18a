#!/usr/bin/env bash
# Installs the packages of the named groups of packages.txt that this machine lacks, and says which. A program of a
# package's name does as well: it may come from elsewhere. Where nothing is missing nothing is asked of the package manager,
# so that a second run needs neither rights nor a network.
#
# usage: install-packages.sh GROUP...
set -euo pipefail
if [ $# -eq 0 ]; then
  sed -n 's/^# usage: /usage: /p' "${BASH_SOURCE[0]}" >&2
  exit 2
fi
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)

if ! command -v dpkg-query >/dev/null; then
  echo "This is no Debian system: provide what scripts/packages.txt names yourself." >&2
  exit 0
fi

isInstalled() { # PACKAGE
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ] || command -v "$1" >/dev/null
}

missing=()
while read -r group package _; do
  case " $* " in
    *" $group "*) isInstalled "$package" || missing+=("$package") ;;
  esac
done < <(grep -v '^#' "$here/packages.txt")
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing the Debian packages that are missing: ${missing[*]}" >&2
asRoot=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Neither root nor sudo: have an administrator run: apt-get install ${missing[*]}" >&2
    exit 1
  fi
  asRoot=(sudo)
fi
"${asRoot[@]}" apt-get update -q >&2
"${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
