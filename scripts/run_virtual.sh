#!/bin/sh
# run_virtual.sh HAS_SCREEN HAS_SOUND SECONDS PROGRAM [ARGUMENT...]: runs the player where the
# machine lacks a screen, a sound server or both. What is missing is brought up privately and ended
# again; a screenshot and a recording stay in out/run/.
set -eu
has_screen=$1 has_sound=$2 seconds=$3
shift 3
out=$PWD/out/run
mkdir -p "$out"
rm -f "$out/screenshot.png" "$out/recording.wav"
private=$(mktemp -d)
started= recorder=

# What Wine has running outlives the script that started it.
wine=no
case $1 in
    */wine_test.sh) wine=$2 ;;
esac
end_wine() {
    [ "$wine" != no ] || return 0
    WINEPREFIX="$PWD/$wine/prefix" wineserver -k 2>/dev/null || true
    WINEPREFIX="$PWD/$wine/prefix" wineserver -w 2>/dev/null || true
}

# Ends only what this script started, newest first.
finish() {
    end_wine
    for pid in $started; do
        kill "$pid" 2>/dev/null || true
    done
    for pid in $started; do
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$private"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

if [ "$has_screen" = no ]; then
    # The server picks a free display number itself and writes it to the file.
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$private/display" \
        >"$private/xvfb.log" 2>&1 &
    started="$! $started"
    tries=0
    while [ ! -s "$private/display" ]; do
        tries=$((tries + 1))
        [ $tries -lt 100 ] || { echo "run: Xvfb did not start" >&2; cat "$private/xvfb.log" >&2; exit 1; }
        sleep 0.05
    done
    DISPLAY=:$(cat "$private/display")
    export DISPLAY
    unset WAYLAND_DISPLAY || true
    HOME=$private openbox >"$private/openbox.log" 2>&1 &
    started="$! $started"
    echo "No screen used: running on a virtual one ($DISPLAY)."
fi

if [ "$has_sound" = no ]; then
    mkdir -m 700 "$private/runtime"
    export XDG_RUNTIME_DIR="$private/runtime"
    unset PULSE_SERVER PULSE_SINK || true
    HOME=$private DBUS_SESSION_BUS_ADDRESS=disabled: pulseaudio -n --daemonize=no \
        --exit-idle-time=-1 --load=module-native-protocol-unix \
        --load="module-null-sink sink_name=card norewinds=1" >"$private/pulse.log" 2>&1 &
    started="$! $started"
    tries=0
    until timeout 3 pactl info >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ $tries -lt 100 ] || { echo "run: the sound server did not start" >&2; cat "$private/pulse.log" >&2; exit 1; }
        sleep 0.05
    done
    parec -d card.monitor --file-format=wav "$out/recording.wav" 2>"$private/parec.log" &
    recorder=$!
    started="$recorder $started"
    echo "No sound card used: playing into a virtual one."
fi

# A run of this kind is a trial: it leaves the user's own settings alone.
export XDG_CONFIG_HOME="$private/config"
mkdir -p "$XDG_CONFIG_HOME"

# An earlier run that was cut short would keep Wine on a screen that is gone.
end_wine
"$@" &
player=$!
started="$player $started"
echo "Playing for $seconds seconds..."
left=$seconds
while [ "$left" -gt 0 ] && kill -0 $player 2>/dev/null; do
    # Half-way, so that the picture shows a song that plays.
    if [ "$left" -eq $(((seconds + 1) / 2)) ] && [ "$has_screen" = no ]; then
        import -window root "$out/screenshot.png" || true
    fi
    sleep 1
    left=$((left - 1))
done

result=0
if kill -0 $player 2>/dev/null; then
    if [ "$wine" != no ]; then
        WINEPREFIX="$PWD/$wine/prefix" WINEDEBUG=-all timeout 10 \
            wine taskkill /im velmarion.exe >/dev/null 2>&1 </dev/null || end_wine
    else
        kill $player
    fi
    wait $player 2>/dev/null || true
else
    wait $player || result=$?
    echo "The player ended by itself with exit code $result." >&2
fi
if [ -n "$recorder" ]; then
    kill "$recorder" 2>/dev/null || true
    wait "$recorder" || true
fi
for made in screenshot.png recording.wav; do
    if [ -s "$out/$made" ]; then
        echo "Left behind: out/run/$made"
    fi
done
exit $result
