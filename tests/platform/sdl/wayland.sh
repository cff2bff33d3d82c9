#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The program on a Wayland desktop: every pixel of its picture and its strip, a key, a click, a screen that stands still,
# a dialog, and the end; and what it says where there is no sound server, no dialog, no sound file, and where the server goes away.
#   with-desktop wayland.sh MURMELO HEADLESS
# The desktop is weston, as a window on the X server, as large as the phone; its one program fills it.
set -eu
murmelo=$1 headless=$2
if ! command -v weston >/dev/null; then
    echo "skipped: weston is not installed"
    exit 77
fi
folder=$(mktemp -d "$HOME/wayland_XXXXXX")  # not in TMPDIR: the name of a socket must be short
patience=60  # seconds for anything that takes a moment, on a busy machine
started=()
touch "$folder/errors" "$folder/weston"
clean() {
    kill "${started[@]}" 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap clean EXIT
fail() {
    echo "$*" >&2
    cat "$folder/errors" "$folder/weston" >&2 || true
    exit 1
}

mkdir -p "$folder/config" "$folder/config2"
echo "lang=0" >"$folder/config/settings"
cp "$folder/config/settings" "$folder/config2/settings"
"$headless" --strip --home "$folder/home2" --config "$folder/config2" - <<END
until Options
wait 500
shot $folder/Options.png
tap 48 126
wait 100
shot $folder/Message.png
wait 7000
key middle
until Record
wait 500
shot $folder/Record.png
END
compare -metric AE "$folder/Options.png" "$folder/Message.png" null: >/dev/null 2>&1 && fail "the strip tells nothing"

XDG_RUNTIME_DIR=$folder weston --backend=x11-backend.so --use-pixman --shell=kiosk-shell.so --socket=wayland \
    --width=480 --height=800 --idle-time=0 >"$folder/weston" 2>&1 &
started+=($!)
desktop=$!
for ((SECONDS = 0; SECONDS < patience;)); do
    [[ -S $folder/wayland ]] && break
    kill -0 "$desktop" 2>/dev/null || fail "weston ended"
    sleep 0.1
done
xdotool mousemove 479 799  # weston shows its arrow always: only some pixels of it are in the window there
without_arrow=(-fill black -draw "rectangle 470,790 479,799")

# In front of NAME=VALUE... COMMAND...: a command that knows of this desktop only.
on_wayland=(env -u DISPLAY -u DBUS_SESSION_BUS_ADDRESS XDG_RUNTIME_DIR="$folder" WAYLAND_DISPLAY=wayland SDL_VIDEODRIVER=wayland)

# The desktop's services, which write down what they are asked for. "bus" is empty where they cannot be simulated.
bus=
if command -v dbus-daemon >/dev/null && /usr/bin/python3 -c 'import dbus, gi' 2>/dev/null; then
    bus=unix:path=$folder/services
    dbus-daemon --session --nofork --nopidfile --syslog-only --address="$bus" 2>/dev/null &
    started+=($!)
    # serves SCRIPT LOG WORD...: starts a service; it writes the calls that it gets into the file LOG.
    serves() {
        local script=$1 log=$folder/$2
        shift 2
        DBUS_SESSION_BUS_ADDRESS=$bus /usr/bin/python3 "$(dirname "$0")/$script" "$log" "$@" &
        started+=($!)
        for ((SECONDS = 0; SECONDS < patience;)); do
            [[ -e $log.ready ]] && return
            sleep 0.1
        done
        fail "$script did not start"
    }
    for ((SECONDS = 0; SECONDS < patience;)); do
        [[ -S $folder/services ]] && break
        sleep 0.1
    done
    serves fake_desktop.py calls
fi
# start NAME=VALUE...: starts the program; what it says goes into the file "errors".
start() {
    "${on_wayland[@]}" "$@" "$murmelo" --home "$folder/home" --config "$folder/config" >/dev/null 2>"$folder/errors" &
    program=$!
    started+=("$program")
}
start WAYLAND_DEBUG=client SDL_AUDIODRIVER=dummy

# shows SCREEN: waits until the window is the picture that the headless program made, pixel by pixel.
shows() {
    local different=unknown
    convert "$folder/$1.png" "${without_arrow[@]}" "$folder/wanted.png"
    for ((SECONDS = 0; SECONDS < patience;)); do
        import -silent -window root -crop 480x800+0+0 +repage "$folder/whole.png"
        convert "$folder/whole.png" "${without_arrow[@]}" "$folder/shown.png"
        different=$(compare -metric AE "$folder/wanted.png" "$folder/shown.png" null: 2>&1) && return
        kill -0 "$program" 2>/dev/null || fail "the program ended before it showed $1"
        sleep 0.1
    done
    fail "$different pixels differ from $1"
}

# Processor time of the program, in hundredths of a second.
ticks() { awk '{print $14 + $15}' "/proc/$program/stat"; }

# sleeps: waits until the program has used no processor time for two seconds.
sleeps() {
    local before
    for ((SECONDS = 0; SECONDS < patience;)); do
        before=$(ticks)
        sleep 2
        [[ $(ticks) = "$before" ]] && return
    done
    fail "standing still costs $(($(ticks) - before)) ticks in two seconds"
}

shows Options
grep -q 'set_app_id("org.murmelo.Murmelo")' "$folder/errors" || fail "the window does not carry the desktop entry's name"
sleeps
xdotool key s  # there is nothing to save, and the strip says so
shows Message
shows Options
xdotool key Return
shows Record
xdotool mousemove 440 770 click 1 mousemove 479 799  # "Back"
shows Options

# asks REQUEST: waits until the program has asked the desktop for it.
asks() {
    for ((SECONDS = 0; SECONDS < patience;)); do
        grep -q "xdg_toplevel@[0-9]*\.$1(" "$folder/errors" && return
        sleep 0.1
    done
    fail "the program does not ask for $1"
}
xdotool key F11  # on this desktop the only program fills the screen from the start
asks unset_fullscreen
xdotool key alt+Return
asks set_fullscreen
# ends: the program ends in good order.
ends() {
    kill -TERM "$program"
    wait "$program" || fail "ended with $?"
}
ends
grep -q "xkbcommon: ERROR" "$folder/errors" && fail "the keyboard reports an error"

# says SENTENCE: waits until it has said that.
says() {
    for ((SECONDS = 0; SECONDS < patience;)); do
        grep -qF -- "$1" "$folder/errors" && return
        kill -0 "$program" 2>/dev/null || fail "the program ended before it said \"$1\""
        sleep 0.1
    done
    fail "it did not say \"$1\""
}
# holds BYTES: waits until the file of the recording has at least BYTES bytes.
holds() {
    for ((SECONDS = 0; SECONDS < patience;)); do
        [[ $(stat -c %s "$folder/home/Murmelo/MrmLastRec.wav" 2>/dev/null || echo 0) -ge $1 ]] && return
        sleep 0.1
    done
    fail "the recording does not grow to $1 bytes"
}

# cleaned BYTES: waits until the take is cleaned up and has at least BYTES bytes.
cleaned() {
    local take=$folder/home/Murmelo/MrmLastRec.wav
    for ((SECONDS = 0; SECONDS < patience;)); do
        [[ -f $take && $(od -An -tu4 -j24 -N4 "$take") -eq 8000 && $(stat -c %s "$take") -ge $1 ]] && return
        sleep 0.1
    done
    fail "there is no take of $1 bytes"
}

# Without a sound server: silence is recorded and can be stopped. Without a dialog a file can be dropped. Escape does not
# end the program, and a second start hands its file over.
start SDL_AUDIODRIVER=pulseaudio PULSE_SERVER="unix:$folder/nothing"
shows Options
xdotool key o
says "Drop a sound file here."
xdotool key r
says "No sound comes from the microphone: "
holds 24044
xdotool key Return
cleaned 12044
xdotool key Escape
sound=$(dirname "$0")/../../../res/sample/hello.wav
kill -0 "$program" || fail "Escape has ended the program"
"${on_wayland[@]}" "$murmelo" --home "$folder/home" --config "$folder/config" "$sound" || fail "the file is not handed over"
pairs=$((($(stat -c %s "$sound") - 44) / 4))
cleaned $((44 + 2 * pairs))  # half as many samples
ends

# The desktop's dialog: its file becomes the take. It does not know the window.
if [[ $bus ]]; then
    serves fake_portal.py dialogs choose "file://$(realpath "$sound")"
    rm -f "$folder/home/Murmelo/MrmLastRec.wav"
    start SDL_AUDIODRIVER=dummy DBUS_SESSION_BUS_ADDRESS="$bus"
    shows Options
    xdotool key o
    cleaned $((44 + 2 * pairs))
    grep -q '^."OpenFile", "", "Open' "$folder/dialogs" || fail "the dialog is not asked for so: $(cat "$folder/dialogs")"
    ends
fi

# The server goes away during a recording.
start SDL_AUDIODRIVER=pulseaudio PULSE_SERVER="$PULSE_SERVER"
shows Options
xdotool key r
holds 24044
kill -KILL "$MURMELO_TEST_SOUND_SERVER"
says "the microphone is gone; what it heard until now is kept"
ends

# What is wrong before there is a window: without an X server SDL asks zenity for a box. Where that is not installed, the
# desktop shows a notice.
mkdir "$folder/bin"
cat >"$folder/bin/zenity" <<END
#!/bin/sh
[ "\$1" = --version ] && echo 3.44.0 && exit
echo "\$*" >>"$folder/box"
END
chmod +x "$folder/bin/zenity"
# refuses NAME=VALUE...: the program names the file that is not there, and ends with status 1.
refuses() {
    local status=0
    "${on_wayland[@]}" "$@" timeout 60 "$murmelo" --from-desktop "$folder/missing.wav" 2>"$folder/errors" || status=$?
    [[ $status = 1 ]] || fail "a file that is not there: status $status"
    grep -q "missing.wav\" cannot be read" "$folder/errors" || fail "the file that is not there is not named"
}
refuses PATH="$folder/bin:/usr/bin:/bin"
grep -q "missing.wav" "$folder/box" || fail "there is no box"
mkdir "$folder/without"
for tool in /usr/bin/* /bin/*; do
    [[ ${tool##*/} = zenity ]] || ln -sf "$tool" "$folder/without/"
done
refuses PATH="$folder/without" DBUS_SESSION_BUS_ADDRESS="${bus:-disabled:}"
if [[ $bus ]]; then
    grep '^."Notify"' "$folder/calls" | grep -q "missing.wav.* cannot be read" || fail "there is no notice"
fi
echo "screens, strip and its message equal, nothing done while one stood still, a dialog and five failures, ended in good order"
