#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The program on a Wayland desktop: every pixel of its picture, a key, a click, a screen that stands still, and the end.
#   with-desktop wayland.sh MURMELO HEADLESS
# The desktop is weston, as a window on the X server, as large as the phone; its one program fills it.
set -eu
murmelo=$1 headless=$2
if ! command -v weston >/dev/null; then
    echo "skipped: weston is not installed"
    exit 77
fi
folder=$(mktemp -d "$HOME/wayland_XXXXXX")  # the name of a socket has to be short: not below any TMPDIR
patience=60  # seconds for what takes a moment, on a machine that does much else
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
"$headless" --home "$folder/home2" --config "$folder/config2" - <<END
until Options
shot $folder/Options.png
key middle
until Record
shot $folder/Record.png
END

XDG_RUNTIME_DIR=$folder weston --backend=x11-backend.so --use-pixman --shell=kiosk-shell.so --socket=wayland \
    --width=480 --height=800 --idle-time=0 >"$folder/weston" 2>&1 &
started+=($!)
desktop=$!
for ((SECONDS = 0; SECONDS < patience;)); do
    [[ -S $folder/wayland ]] && break
    kill -0 "$desktop" 2>/dev/null || fail "weston ended"
    sleep 0.1
done
xdotool mousemove 240 20  # into the empty band above the picture: weston shows its arrow always
env -u DISPLAY WAYLAND_DEBUG=client XDG_RUNTIME_DIR="$folder" WAYLAND_DISPLAY=wayland SDL_VIDEODRIVER=wayland SDL_AUDIODRIVER=dummy \
    "$murmelo" --home "$folder/home" --config "$folder/config" >/dev/null 2>"$folder/errors" &
program=$!
started+=("$program")

# shows SCREEN: waits until the window is the picture that the headless program made, pixel by pixel.
shows() {
    local different=unknown
    for ((SECONDS = 0; SECONDS < patience;)); do
        import -silent -window root -crop 480x640+0+160 +repage "$folder/shown.png"
        different=$(compare -metric AE -extract 480x640+0+160 "$folder/$1.png" +extract "$folder/shown.png" null: 2>&1) &&
            return
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
xdotool key Return
shows Record
xdotool mousemove 440 770 click 1 mousemove 240 20  # "Back"
shows Options

# asks REQUEST: waits until the program has asked the desktop for it.
asks() {
    for ((SECONDS = 0; SECONDS < patience;)); do
        grep -q "xdg_toplevel@[0-9]*\.$1(" "$folder/errors" && return
        sleep 0.1
    done
    fail "the program does not ask for $1"
}
xdotool key F11  # this desktop has let its one program fill the screen from the start
asks unset_fullscreen
xdotool key alt+Return
asks set_fullscreen
kill -TERM "$program"
wait "$program" || fail "ended with $?"
grep -q "xkbcommon: ERROR" "$folder/errors" && fail "the keyboard complains"
echo "two screens equal, nothing done while one stood still, ended in good order"
