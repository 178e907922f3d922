#!/bin/sh
# take_pictures.sh PROGRAM OUT_DIR: takes the pictures of the manual and the README from the real
# program, on a virtual screen, with a home folder that exists for it alone. Takes half a minute.
set -eu
if [ "${IN_OWN_HOME:-}" != yes ]; then
    program=$(realpath "$1")
    mkdir -p "$2"
    out=$(realpath "$2")
    IN_OWN_HOME=yes exec unshare -r -m "$(realpath "$0")" "$program" "$out"
fi
program=$1 out=$2
mount -t tmpfs tmpfs /home
HOME=/home/anna
mkdir $HOME
mount -t tmpfs tmpfs $HOME
export HOME
private=$(mktemp -d)
music=$HOME/Music
export XDG_RUNTIME_DIR="$private" XDG_CONFIG_HOME="$HOME/.config" XDG_DATA_HOME="$HOME/.local/share"
unset WAYLAND_DISPLAY PULSE_SERVER PULSE_SINK QT_QPA_PLATFORM || true
export DBUS_SESSION_BUS_ADDRESS=disabled:
started=
finish() {
    for pid in $started; do kill "$pid" 2>/dev/null || true; done
    for pid in $started; do wait "$pid" 2>/dev/null || true; done
    rm -rf "$private"
}
trap finish EXIT
trap 'exit 130' INT TERM

# wait_for COMMAND...
wait_for() {
    tries=0
    until "$@" >"$private/answer" 2>/dev/null; do
        tries=$((tries + 1))
        [ $tries -lt 100 ] || { echo "take_pictures.sh: waited in vain for: $*" >&2; exit 1; }
        sleep 0.1
    done
}
# window TITLE: its number, once it is there.
window() {
    wait_for xdotool search --onlyvisible --name "$1"
    tail -n 1 "$private/answer"
}
# picture NAME TITLE: of one window. screen_picture NAME TITLE: with what lies over it.
picture() {
    import -window "$(window "$2")" -strip +dither -colors 255 "PNG8:$out/$1.png"
}
screen_picture() {
    place=$(xwininfo -id "$(window "$2")" | awk '
        /Absolute upper-left X/ { x = $NF } /Absolute upper-left Y/ { y = $NF }
        /Width:/ { width = $NF } /Height:/ { print width "x" $NF "+" x "+" y }')
    import -window root -crop "$place" +repage -strip +dither -colors 255 \
        "PNG8:$out/$1.png"
}
close_player() {
    xdotool windowclose "$(window '^Nerolith$')" || true
    kill "$player" 2>/dev/null || true
    wait "$player" 2>/dev/null || true
}
open_player() {
    "$program" "$@" 2>"$private/player.log" &
    player=$!
    started="$player $started"
    main=$(window '^Nerolith$')
    xdotool windowmove "$main" 60 40
    xdotool windowfocus --sync "$main"
}
keys() { xdotool key --clearmodifiers --delay 60 "$@"; }
# click X Y [BUTTON] in the main window; click_section X Y in the recording section's
click() { xdotool mousemove --window "$main" "$1" "$2" click "${3:-1}"; }
click_section() { xdotool mousemove --window "$section" "$1" "$2" click 1; }

# Both decks are heard: the levels of both begin to be lit.
mixing() {
    import -window "$main" "$private/now.png"
    for x in 306 424; do
        convert "$private/now.png" -format "%[fx:p{$x,121}.intensity > 0.2]" info: | grep -q 1 || return 1
    done
}

mkdir -p "$music/Evenings/Autumn" "$music/Evenings/By the sea" "$music/Evenings/Winter" \
    "$XDG_CONFIG_HOME/velmarion"
ffmpeg -nostdin -loglevel error -f lavfi -i 'sine=220:duration=214' -filter:a volume=4.8 \
    -ac 2 -ar 44100 -b:a 48k "$private/song.mp3"
ffmpeg -nostdin -loglevel error -i "$private/song.mp3" -b:a 64k "$private/song.wma"
while read -r name; do
    cp "$private/song.${name##*.}" "$music/Evenings/$name"
    touch -d '200 days ago' "$music/Evenings/$name"
done <<'SONGS'
A walk after rain.mp3
Amber lamps.mp3
Blue hour on the harbour.mp3
Copper roofs.mp3
Evening tram.wma
First frost.mp3
Harbour bells.mp3
Last ferry.mp3
Lighthouse.mp3
Night train 1.mp3
Night train 2.mp3
Paper lanterns.wma
Quiet platform.mp3
Rooftop garden.mp3
Slow river.mp3
Window seat.mp3
SONGS
touch "$music/Evenings/First frost.mp3" "$music/Evenings/Lighthouse.mp3"
for name in "Amber lamps" "Lighthouse" "Slow river" "Night train 2" "Harbour bells"; do
    printf '%s/Evenings/%s.mp3\r\n' "$music" "$name"
done >"$music/Sunday evening.m3u"
cat >"$XDG_CONFIG_HOME/velmarion/settings.ini" <<SETTINGS
[Microsoft Visual Basic AddIns/Setting]
setting=3
fadem=10
fadelen=5
lo=True
color=10
ti=False

[Nerolith/Setting]
enabl=True
mark_for_deletion=True
key0=Night
key1=Harbour
key2=A
adjust=True

[Velmarion/Path]
path=$music/Evenings
SETTINGS

Xvfb -displayfd 3 -screen 0 1600x900x24 -nolisten tcp 3>"$private/display" 2>/dev/null &
started="$! $started"
wait_for test -s "$private/display"
DISPLAY=:$(cat "$private/display")
export DISPLAY
openbox >/dev/null 2>&1 &
started="$! $started"
pulseaudio -n --daemonize=no --exit-idle-time=-1 --load=module-native-protocol-unix \
    --load="module-null-sink sink_name=card norewinds=1" >/dev/null 2>&1 &
started="$! $started"
wait_for pactl info

# Random, some songs played, the playing one well under way, two selected.
open_player "$music/Evenings/Blue hour on the harbour.mp3,3"
sleep 1
for song in 1 2 3; do
    keys alt+n
    sleep 0.6
done
sleep 6
# The slider, near its half; and back to the top of the list.
click 330 194
sleep 0.3
xdotool mousemove --window "$main" 400 450 click --repeat 20 --delay 20 4
sleep 1
picture playing '^Nerolith$'
click 100 283
sleep 0.6
screen_picture folders '^Nerolith$'
keys Escape
sleep 0.3
# Into the last seconds before the mix.
click 770 194
sleep 0.3
xdotool mousemove --window "$main" 400 450 click --repeat 20 --delay 20 4
wait_for mixing
sleep 2
picture mixing '^Nerolith$'

keys F1
sleep 0.3
click 260 420 3
sleep 0.5
keys Down
sleep 0.3
keys Right
sleep 0.5
screen_picture menu '^Nerolith$'
keys Escape Escape Escape
sleep 0.3

click 740 238
sleep 0.4
keys Up Return
window '^Settings$' >/dev/null
sleep 0.5
picture settings '^Settings$'
xdotool windowclose "$(window '^Settings$')"
sleep 0.5

xdotool windowfocus --sync "$main"
keys F1 alt+a
window '^Add selected files to playlist' >/dev/null
sleep 0.5
xdotool type --delay 20 "$music/Sunday evening.m3u"
keys Return
window 'Sunday evening.m3u$' >/dev/null
sleep 0.5
keys Down Down
sleep 0.3
keys Return
sleep 0.5
screen_picture editor 'Sunday evening.m3u$'
keys Escape
sleep 0.3
keys Escape
close_player

open_player "$music/Evenings/Blue hour on the harbour.mp3,2"
sleep 1
click 740 238
sleep 0.4
keys Up Up Return
section=$(window '^Nerolith recording section$')
sleep 1
click_section 236 125
window '^Select Filename to record to' >/dev/null
sleep 0.5
xdotool type --delay 20 "$music/Evening at home.wav"
keys Return
sleep 0.5
click_section 159 284
xdotool type --delay 20 650
click_section 236 203
sleep 8
picture recording '^Nerolith recording section$'
close_player
ls -l "$out"
