#!/bin/sh
# wine_desktop.sh up|down PREFIX_DIR: a private screen with a window manager and a private sound
# server for the programs that wine_test.sh runs in that prefix. "down" ends what "up" started.
set -eu
action=$1 prefix=$2

# Reads the process numbers that "up" wrote, newest first.
end_started() {
    [ -f "$prefix/desktop.pids" ] || return 0
    for pid in $(tac "$prefix/desktop.pids"); do
        kill "$pid" 2>/dev/null || true
    done
    rm -f "$prefix/desktop.pids"
}

# A program that still runs in the prefix would go on with the screen that it saw first.
end_wine() {
    [ -d "$prefix/prefix" ] || return 0
    WINEPREFIX="$prefix/prefix" wineserver -k 2>/dev/null || true
    WINEPREFIX="$prefix/prefix" wineserver -w 2>/dev/null || true
}

# wait_until WHAT COMMAND...: up to ten seconds.
wait_until() {
    what=$1
    shift
    tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        if [ $tries -ge 200 ]; then
            echo "wine_desktop.sh: $what did not start; see $prefix/*.log" >&2
            end_started
            exit 1
        fi
        sleep 0.05
    done
}

# begin LOG COMMAND...: leaves it running, without this script's descriptors.
begin() {
    log=$1
    shift
    setsid "$@" >"$prefix/$log" 2>&1 </dev/null &
    echo $! >>"$prefix/desktop.pids"
}

mkdir -p "$prefix"
prefix=$(cd "$prefix" && pwd)
end_wine
end_started
rm -f "$prefix/desktop" "$prefix/display"
[ "$action" = up ] || exit 0

# M: is a drive without a medium: a folder that is not there. Wine looks at its drives once.
if [ ! -f "$prefix/ready" ]; then
    "$(dirname "$0")/wine_test.sh" "$prefix"
fi
rm -rf "$prefix/medium"
ln -sfn "$prefix/medium" "$prefix/prefix/dosdevices/m:"

# The socket's path has to be short, wherever the build directory lies.
runtime="${TMPDIR:-/tmp}/nerolith-wine-$(printf %s "$prefix" | cksum | cut -d ' ' -f 1)"
mkdir -p "$runtime"
chmod 700 "$runtime"
export XDG_RUNTIME_DIR="$runtime"
unset PULSE_SERVER PULSE_SINK WAYLAND_DISPLAY || true

begin xvfb.log sh -c 'exec Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$0"' \
    "$prefix/display"
wait_until "the screen" test -s "$prefix/display"
DISPLAY=:$(cat "$prefix/display")
export DISPLAY
begin openbox.log env HOME="$runtime" openbox

# Without norewinds the card takes back what is under way, and sound starts late and breaks.
begin pulse.log env HOME="$runtime" DBUS_SESSION_BUS_ADDRESS=disabled: pulseaudio -n \
    --daemonize=no --exit-idle-time=-1 --load=module-native-protocol-unix \
    --load="module-null-sink sink_name=card norewinds=1"
wait_until "the sound server" timeout 3 pactl info

cat >"$prefix/desktop" <<EOF
unset PULSE_SERVER PULSE_SINK WAYLAND_DISPLAY
export DISPLAY=$DISPLAY XDG_RUNTIME_DIR='$runtime'
EOF
