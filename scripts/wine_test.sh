#!/bin/sh
# wine_test.sh PREFIX_DIR [PROGRAM [ARGUMENT...]]: runs one Windows program under Wine, in a private
# prefix, and hands on its output and its exit code. Without a program it makes the prefix, where it
# is not made yet.
#
# The output goes through a file: Wine's server outlives the program and would keep a pipe open, so
# that whoever reads it waits for ever. A crash ends at once instead of showing a dialog.
set -u
prefix=$1
shift

mkdir -p "$prefix"
prefix=$(cd "$prefix" && pwd)
export WINEPREFIX="$prefix/prefix" WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d"
# Where wine_desktop.sh has put up a screen and a sound server for this prefix.
if [ -f "$prefix/desktop" ]; then
    . "$prefix/desktop"
fi
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$prefix}"

(
    flock 9
    if [ ! -f "$prefix/ready" ]; then
        wine wineboot -i >"$prefix/wineboot.log" 2>&1 </dev/null 9>&- && touch "$prefix/ready"
        timeout 30 wineserver -w 9>&- # writes the registry as it ends
    fi
) 9>"$prefix/lock"
if [ ! -f "$prefix/ready" ]; then
    echo "wine_test.sh: Wine could not set up its prefix; see $prefix/wineboot.log" >&2
    exit 125
fi

[ $# -gt 0 ] || exit 0

# Debian's Wine ends its server with the last program, and what starts at that moment is cut off: 4
# of 500 starts, two at a time. For tests, one of which follows the other, the server is kept for a
# minute. Wine itself still fails now and then, between the start of a program and its first test or
# between its last test and its end: then a test program is started once more. What is the program's
# own fault happens again. Any other program is started once.
lost_by_wine() {
    ! grep -q '^\[==========\]' "$1" ||
        grep -q -E '^(wine client error|Inconsistency detected by ld\.so):' "$1"
}

attempts=1
case $1 in
    *_tests.exe)
        attempts=2
        wineserver -p60 >/dev/null 2>&1 </dev/null || true
        ;;
esac
log=$(mktemp "$prefix/output.XXXXXX")
while :; do
    wine "$@" >"$log" 2>&1 </dev/null
    result=$?
    attempts=$((attempts - 1))
    if [ $result -eq 0 ] || [ $attempts -eq 0 ] || ! lost_by_wine "$log"; then
        break
    fi
    echo "wine_test.sh: Wine lost $1 with $result; started once more" >&2
    cat "$log" >&2
done
cat "$log"
rm -f "$log"
exit $result
