#!/bin/sh
# windows_installer_test.sh PROGRAM_DIR WINE_DIR: makes the packages of a build, installs the player
# silently in the prefix of WINE_DIR, starts what was installed, and uninstalls it silently. Wants
# the desktop of scripts/wine_desktop.sh.
set -u
here=$(cd "$(dirname "$0")/../.." && pwd)
program=$1 wine_dir=$2
out=$wine_dir/package
drive=$wine_dir/prefix/drive_c
failed=0

run() { timeout 120 "$here/scripts/wine_test.sh" "$wine_dir" "$@"; }
fail() {
    echo "FAILED: $*"
    failed=1
}
# until_true SECONDS COMMAND...
until_true() {
    left=$(($1 * 10))
    shift
    until "$@" >/dev/null 2>&1; do
        left=$((left - 1))
        [ $left -gt 0 ] || return 1
        sleep 0.1
    done
}
# All that an installation may leave: files, shortcuts, keys of the registry.
leftovers() {
    find "$drive" -iname '*nerolith*' -not -path '*/Temp/*' -o -iname 'velmarion*'
    for key in 'HKCU\Software\Quendrel' 'HKCU\Software\Classes\Nerolith.Playlist' \
        'HKCU\Software\Classes\.m3u' 'HKCU\Software\Classes\Applications\velmarion.exe' \
        'HKCU\Software\Classes\Directory\shell\Nerolith' \
        'HKCU\Software\Classes\Drive\shell\Nerolith' \
        'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Nerolith'; do
        run reg query "$key" 2>/dev/null | grep -a 'HKEY_'
    done
    run reg query 'HKCU\Software\RegisteredApplications' 2>/dev/null | grep -a Nerolith
}
window_shown() { xdotool search --onlyvisible --name '^Nerolith$'; }
no_window() { ! window_shown; }

. "$wine_dir/desktop"
mkdir -p "$out"
if ! (cd "$here" && scripts/package_windows.sh "$program" "$out") >"$out/log" 2>&1; then
    cat "$out/log"
    exit 1
fi
setup=$(ls "$out"/*-setup.exe)
# What an earlier run left when it failed.
earlier=$(find "$drive" -name velmarion.exe -o -name uninstall.exe | head -n 1)
if [ -n "$earlier" ]; then
    run "$setup" /S
    run "$(dirname "$earlier")/uninstall.exe" /S
    until_true 60 test ! -e "$(dirname "$earlier")"
fi
left=$(leftovers)
[ -z "$left" ] || fail "not clean before the start: $left"

run "$setup" /S || fail "the installer ends with $?"
exe=$(find "$drive" -name velmarion.exe | head -n 1)
[ -n "$exe" ] || fail "no velmarion.exe was installed"
folder=$(dirname "$exe")
for file in velmarion.exe skin.jpg LICENSE.txt README.txt uninstall.exe; do
    [ -s "$folder/$file" ] || fail "$file is missing"
done
cmp "$exe" "$program/velmarion.exe" || fail "another program was installed"
[ -n "$(find "$drive" -name 'Nerolith.lnk' -path '*Start Menu*')" ] || fail "no start-menu entry"
run reg query 'HKCU\Software\Classes\.m3u\OpenWithProgids' | grep -aq Nerolith.Playlist ||
    fail "not offered for .m3u"
run reg query 'HKCU\Software\Classes\Nerolith.Playlist\shell\open\command' | grep -aq velmarion ||
    fail "no command to open a playlist"
run reg query 'HKCU\Software\Classes\Applications\velmarion.exe\SupportedTypes' | grep -aq .mp3 ||
    fail "not offered for songs"
for kind in Directory Drive; do
    run reg query "HKCU\\Software\\Classes\\$kind\\shell\\Nerolith\\command" |
        grep -aq 'velmarion.exe" "%1"' || fail "no command to open a $kind"
done

run "$exe" >/dev/null &
until_true 60 window_shown || fail "the installed program shows no window"
# Over a player that runs nothing is installed, and the player goes on.
run "$setup" /S && fail "installed over a running player"
run taskkill /im velmarion.exe >/dev/null
until_true 30 no_window || fail "the installed program does not close"
wait

run "$setup" /S || fail "a second installation over the first ends with $?"
run "$folder/uninstall.exe" /S || fail "the uninstaller ends with $?"
until_true 60 test ! -e "$folder" || fail "the folder is still there: $(ls "$folder")"
sleep 0.5
left=$(leftovers)
[ -z "$left" ] || fail "left behind: $left"

unzip -tq "$(ls "$out"/*.zip)" || fail "the zip is damaged"
[ $failed = 0 ] && echo "installed, started, uninstalled"
exit $failed
