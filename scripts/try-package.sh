#!/usr/bin/env bash
# Installs the Debian package into a clean Debian root and tries it there: whether what it says it depends on is enough.
# Without a package it builds one. Wants root and a network; nothing outside its own temporary folder is touched, but for
# build/package and the tools that it installs when they are missing.
#
# usage: try-package.sh [PACKAGE.deb]
set -euo pipefail
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

case "${1-}" in
  -h | --help)
    sed -n '/^# usage/s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
    ;;
esac
[ "$(id -u)" -eq 0 ] || { echo "try-package.sh: a clean root can only be made by root" >&2; exit 1; }
"$root/scripts/install-packages.sh" build package

package=${1-}
if [ -z "$package" ]; then
  cmake -S "$root" --preset package --log-level=WARNING
  cmake --build "$root/build/package" -j "$(nproc)"
  rm -f "$root"/build/package/*.deb
  (cd "$root/build/package" && cpack -G DEB)
  package=$(ls "$root"/build/package/*.deb)
fi

clean=$(mktemp -d)
chmod 755 "$clean"  # apt gives its rights away before it downloads
trap 'rm -rf --one-file-system "$clean"' EXIT
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
echo "== a clean $suite"
debootstrap --variant=minbase "$suite" "$clean" >"$clean.log" || { cat "$clean.log"; exit 1; }
rm -f "$clean.log"

inside() { # COMMAND...
  env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/ DEBIAN_FRONTEND=noninteractive chroot "$clean" "$@"
}

echo "== $package"
cp "$package" "$clean/package.deb"
cp "$root"/examples/*.wrl "$clean/srv"
inside apt-get update -q >/dev/null
inside apt-get install -q -y --no-install-recommends /package.deb >"$clean/install.log" 2>&1 ||
  { cat "$clean/install.log"; exit 1; }
inside dpkg-query -W -f '${Package} ${Version} ${db:Status-Status}\n' wrl

echo "== the command"
inside wrl --version
inside wrl info --no-stats /srv/two-triangles.wrl
inside wrl check /srv/garden.wrl /srv/chair.wrl
if inside wrl --help | grep -qE "^ +render "; then
  echo "== pictures, with what the package recommends"
  recommended=$(inside dpkg-query -W -f '${Recommends}' wrl)
  inside apt-get install -q -y --no-install-recommends ${recommended//,/ } >/dev/null 2>&1
  inside wrl render --no-stats /srv/garden.wrl /srv/garden.png
  [ "$(head -c 4 "$clean/srv/garden.png" | tail -c 3)" = PNG ] || { echo "no picture" >&2; exit 1; }
  echo "a picture of $(stat -c %s "$clean/srv/garden.png") bytes"
fi
echo "== a page"
inside wrl convert -q /srv/garden.wrl /srv/garden.html
grep -q '<title>Garden</title>' "$clean/srv/garden.html" || { echo "no page" >&2; exit 1; }
grep -q 'three.js authors' "$clean/usr/share/doc/wrl/copyright" || { echo "no licence of the viewer" >&2; exit 1; }
echo "a page of $(stat -c %s "$clean/srv/garden.html") bytes"
echo "== removed again"
inside apt-get purge -q -y wrl >/dev/null 2>&1
left=$(inside find /usr -path '*wrl*' -o -name 'libvekhost*')
[ -z "$left" ] || { echo "left behind: $left" >&2; exit 1; }
echo "all well"
