#!/bin/sh
# package_linux.sh PROGRAM_DIR OUT_DIR: makes the Debian package of a finished build, and has the
# distribution's own checkers look at it. Ends with an error when one of them finds an error.
set -eu
cd "$(dirname "$0")/.."
program=$1
mkdir -p "$2"
out=$(cd "$2" && pwd)
version=$(sed -n 's/^project(Nerolith VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
architecture=$(dpkg --print-architecture)
work=$(mktemp -d)
package=$work/nerolith_$version-1_$architecture.deb
trap 'rm -rf "$work"' EXIT
umask 022
root=$work/root
doc=$root/usr/share/doc/nerolith
icons=$root/usr/share/icons/hicolor

# The same sources make the same package: its date is that of the last change.
seconds=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
export SOURCE_DATE_EPOCH="$seconds"
sed '1,4d; s/^$/./; s/^/ /' LICENSE >"$work/licence"
filled() {
    sed -e "s/@VERSION@/$version/; s/@DATE@/$(date -u -d "@$seconds" +%Y-%m-%d)/" \
        -e "s/@RFC_DATE@/$(date -u -d "@$seconds" -R)/" \
        -e "/^@LICENCE@/{r $work/licence" -e 'd}' "packaging/linux/$1"
}

install -D -m 755 -s "$program/velmarion" "$root/usr/bin/velmarion"
install -D -m 644 -s --strip-program=strip "$program/velmarion-sound.so" \
    "$root/usr/lib/velmarion/velmarion-sound.so"
install -D -m 644 "$program/skin.jpg" "$root/usr/share/velmarion/skin.jpg"
install -D -m 644 packaging/linux/velmarion.desktop \
    "$root/usr/share/applications/velmarion.desktop"
mkdir -p "$root/usr/share/metainfo" "$root/usr/share/man/man1" "$doc/pictures"
filled org.quendrel.nerolith.metainfo.xml \
    >"$root/usr/share/metainfo/org.quendrel.nerolith.metainfo.xml"
filled velmarion.1 | gzip -9n >"$root/usr/share/man/man1/velmarion.1.gz"

install -D -m 644 assets/velmarion.svg "$icons/scalable/apps/velmarion.svg"
for side in 16 22 24 32 48 64 128 256 512; do
    mkdir -p "$icons/${side}x$side/apps"
    rsvg-convert -w $side -h $side -o "$icons/${side}x$side/apps/velmarion.png" assets/velmarion.svg
done

filled copyright >"$doc/copyright"
filled changelog | gzip -9n >"$doc/changelog.Debian.gz"
gzip -9nc CHANGELOG.md >"$doc/changelog.gz"
install -m 644 README.md docs/manual.md "$doc/"
install -m 644 docs/pictures/*.png "$doc/pictures/"
# The reader of the installed page has no source tree.
sed -i 's,docs/pictures/,pictures/,g; s,docs/manual.md,manual.md,g' "$doc/README.md"

mkdir -p "$work/debian" "$root/DEBIAN"
cp packaging/linux/control "$work/debian/control"
filled changelog >"$work/debian/changelog"
(cd "$work" && dpkg-shlibdeps -T"$work/substvars" -O --warnings=7 \
    root/usr/bin/velmarion root/usr/lib/velmarion/velmarion-sound.so) >"$work/libraries"
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root/DEBIAN/md5sums"
libraries=$(sed -n 's/^shlibs:Depends=//p' "$work/libraries")
size=$(du -sk --apparent-size "$root/usr" | cut -f1)
{
    echo "Package: nerolith"
    echo "Version: $version-1"
    echo "Architecture: $architecture"
    echo "Installed-Size: $size"
    sed -n '/^Maintainer:\|^Section:\|^Priority:/p' packaging/linux/control
    sed -n "/^Depends:/,\$p" packaging/linux/control | sed "s|\${shlibs:Depends}|$libraries|"
} >"$root/DEBIAN/control"
find "$root" -newermt "@$seconds" -print0 | xargs -0 touch -h -d "@$seconds"
dpkg-deb --root-owner-group --build "$root" "$package" >/dev/null

desktop-file-validate "$root/usr/share/applications/velmarion.desktop"
appstreamcli validate --no-net "$root/usr/share/metainfo/org.quendrel.nerolith.metainfo.xml" \
    >"$work/appstream" 2>&1 || { cat "$work/appstream" >&2; exit 1; }
# It is not meant for the archive, whose first uploads close a wish.
lintian --no-cfg --fail-on error --suppress-tags initial-upload-closes-no-bugs "$package"
rm -f "$out"/nerolith_*.deb
mv "$package" "$out/"
ls -l "$out"/nerolith_*.deb
