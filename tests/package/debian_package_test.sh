#!/bin/sh
# debian_package_test.sh PROGRAM_DIR WORK_DIR: makes the Debian package of a build (whose checkers
# look at it on the way), unpacks it in a root of its own, and plays a song with what lies there.
set -u
here=$(cd "$(dirname "$0")/../.." && pwd)
program=$(cd "$1" && pwd)
rm -rf "$2"
mkdir -p "$2"
work=$(cd "$2" && pwd)
root=$work/root
failed=0
fail() {
    echo "FAILED: $*"
    failed=1
}

if ! "$here/scripts/package_linux.sh" "$program" "$work/out" >"$work/log" 2>&1; then
    cat "$work/log"
    exit 1
fi
cat "$work/log"
deb=$(ls "$work"/out/nerolith_*.deb)
dpkg -x "$deb" "$root" || exit 1

needed=$(dpkg-deb -f "$deb" Depends)
for library in libqt6widgets6 libavformat libavcodec libpulse0 libglib2.0-0 libfluidsynth3 \
    soundfont; do
    case $needed in *$library*) ;; *) fail "does not depend on $library: $needed" ;; esac
done
for file in usr/bin/velmarion usr/lib/velmarion/velmarion-sound.so usr/share/velmarion/skin.jpg \
    usr/share/applications/velmarion.desktop usr/share/man/man1/velmarion.1.gz \
    usr/share/icons/hicolor/scalable/apps/velmarion.svg usr/share/doc/nerolith/copyright \
    usr/share/doc/nerolith/manual.md; do
    [ -s "$root/$file" ] || fail "$file is missing"
done
for side in 16 32 48 128 512; do
    icon=$root/usr/share/icons/hicolor/${side}x$side/apps/velmarion.png
    size=$(identify -format '%wx%h' "$icon" 2>&1)
    [ "$size" = "${side}x$side" ] || fail "the icon for $side is $size"
done
# Each picture that the manual shows is there.
sed -n 's/.*](\(pictures[^)]*\)).*/\1/p' "$root/usr/share/doc/nerolith/manual.md" |
    while read -r picture; do
        [ -s "$root/usr/share/doc/nerolith/$picture" ] || echo "$picture"
    done >"$work/missing"
[ ! -s "$work/missing" ] || fail "the manual lacks $(cat "$work/missing")"
# The man page is whole: no formatter's complaints, and its version is the program's.
told=$("$root/usr/bin/velmarion" --version)
zcat "$root/usr/share/man/man1/velmarion.1.gz" | grep -q "$told" || fail "man page of another version"

# A song whose end is not reached, and a skin that can be told from any other.
python3 - "$work/music" <<'P' || exit 1
import math, os, struct, sys, wave
os.makedirs(sys.argv[1])
with wave.open(sys.argv[1] + "/tone.wav", "wb") as song:
    song.setparams((1, 2, 44100, 0, "NONE", ""))
    song.writeframes(b"".join(struct.pack("<h", int(8000 * math.sin(i * 0.0627)))
                              for i in range(44100 * 30)))
P
convert -size 960x720 xc:'#c01070' "$root/usr/share/velmarion/skin.jpg"
(cd "$work" && XDG_DATA_HOME="$work/data" timeout 60 "$here/scripts/run_virtual.sh" no no 6 \
    "$root/usr/bin/velmarion" "$work/music/,2" >"$work/run.log" 2>&1) || {
    cat "$work/run.log"
    fail "the unpacked program ends with $?"
}
loud=$(python3 - "$work/out/run/recording.wav" <<'P'
import array, sys
sound = array.array("h", open(sys.argv[1], "rb").read()[44:][: 4 * 44100 * 60])
print(sum(abs(s) > 1000 for s in sound) // 2)
P
)
# The tone is that loud for nine tenths of its time.
[ "${loud:-0}" -gt 88200 ] || fail "two seconds of tone should be heard, $loud frames are"
pink=$(convert "$work/out/run/screenshot.png" -fuzz 10% -fill white -opaque '#c01070' \
    -fill black +opaque white -format '%[fx:int(mean*w*h)]' info:)
[ "${pink:-0}" -gt 10000 ] || fail "the skin in its share folder is not shown ($pink pixels)"
# What is beside a build must not have been what was played with.
[ ! -e "$root/usr/bin/velmarion-sound.so" ] || fail "the sound module is beside the program"
[ $failed = 0 ] && echo "packaged, checked, unpacked, played ($loud loud frames, $pink pixels)"
exit $failed
