#!/bin/sh
# ensure_packages.sh GROUP...: installs the Debian packages of the groups in packages.txt that are
# missing. Asks the package database only, so it costs nothing when all is there.
set -eu
list=$(dirname "$0")/packages.txt

wanted=
for group in "$@"; do
    found=$(awk -v group="[$group]" '
        /^\[/ { inside = ($0 == group); next }
        inside && NF && !/^#/ { print $1 }' "$list")
    if [ -z "$found" ]; then
        echo "ensure_packages.sh: packages.txt has no group '$group'" >&2
        exit 2
    fi
    wanted="$wanted $found"
done

if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system. Please install what corresponds to:" $wanted >&2
    echo "(going on with what is there)" >&2
    exit 0
fi

missing=
for package in $wanted; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" = 0 ]; then
    root=
elif command -v sudo >/dev/null; then
    root=sudo
else
    echo "Missing packages, and neither root nor sudo to install them. As root run:" >&2
    echo "  apt-get install --no-install-recommends$missing" >&2
    exit 1
fi

echo "Installing:$missing"
log=$(mktemp)
install() {
    $root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends $missing >"$log" 2>&1 </dev/null
}
# A fresh machine has no package lists, an old one has outdated ones: ask for new ones only then.
if ! install; then
    $root apt-get update -q >>"$log" 2>&1 </dev/null || true
    if ! install; then
        tail -n 20 "$log" >&2
        echo "Could not install:$missing (full output: $log)" >&2
        exit 1
    fi
fi
rm -f "$log"
