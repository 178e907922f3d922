#!/bin/sh
# package_windows.sh PROGRAM_DIR OUT_DIR: makes the zip and the installer of a finished build.
set -eu
cd "$(dirname "$0")/.."
program=$1 out=$2
version=$(sed -n 's/^project(Nerolith VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=nerolith-$version-windows-x64
content=$out/$name

rm -rf "$content" "$out/$name.zip" "$out/$name-setup.exe"
mkdir -p "$content"
cp "$program/velmarion.exe" "$program/skin.jpg" "$content/"
# As Notepad of any age shows it.
sed 's/$/\r/' LICENSE >"$content/LICENSE.txt"
sed "s/@VERSION@/$version/; s/\$/\r/" packaging/windows/README.txt >"$content/README.txt"

(cd "$out" && zip -q -9 -X -r "$name.zip" "$name")
makensis -V2 -NOCD -DVERSION="$version" -DCONTENT="$content" -DICON=src/platform/windows/velmarion.ico \
    -DOUT_FILE="$out/$name-setup.exe" packaging/windows/nerolith.nsi
rm -rf "$content"
ls -l "$out/$name.zip" "$out/$name-setup.exe"
