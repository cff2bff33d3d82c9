#!/bin/bash
# SPDX-License-Identifier: MIT
# speak.sh PROGRAM: checks what the program has read aloud, with a private speech server whose voice is
# silent. Run it under with-desktop.
program=$1

if ! command -v speech-dispatcher >/dev/null || [[ ! -x /usr/lib/speech-dispatcher-modules/sd_dummy ]]; then
    echo "skipped: speech-dispatcher is not installed"
    exit 77
fi

folder=$(mktemp -d /tmp/murmelo_speak_XXXXXX)
started=()
clean() {
    kill "${started[@]}" 2>/dev/null
    wait "${started[@]}" 2>/dev/null
    rm -rf "$folder"
}
trap clean EXIT

fail() {
    echo "failed: $*"
    cat "$folder"/*.txt "$folder/log/speech-dispatcher.log" 2>/dev/null | tail -40
    exit 1
}

# until_true COMMAND...: waits for a state; a minute is far more than it takes
until_true() {
    for ((i = 0; i < 600; i++)); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}

mkdir "$folder/conf" "$folder/conf/modules" "$folder/log" "$folder/home" "$folder/config"
cat >"$folder/conf/speechd.conf" <<END
LogLevel 5
LogDir "$folder/log"
AddModule "dummy" "sd_dummy" ""
DefaultModule dummy
END
speech-dispatcher -s -c unix_socket -S "$folder/socket" -C "$folder/conf" -L "$folder/log" -P "$folder/pid" -t 0 \
    >"$folder/server.txt" 2>&1 &
started+=($!)
until_true test -S "$folder/socket" || fail "the speech server did not start"

was_said() { grep -qF -- "$1" "$folder/log/speech-dispatcher.log"; }
is_loaded() { grep -q libspeechd "/proc/$1/maps"; }
has_window() { [[ -n $(xdotool search --onlyvisible --name ' - Murmelo$' 2>/dev/null) ]]; }

echo "lang=1" >"$folder/config/settings"
export SPEECHD_ADDRESS=unix_socket:$folder/socket

"$program" --home "$folder/home" --config "$folder/config" 2>"$folder/silent.txt" &
silent=$!
started+=("$silent")
until_true has_window || fail "no window"
is_loaded $silent && fail "the speech library is loaded without --speak"
kill $silent
wait $silent

"$program" --speak --home "$folder/home" --config "$folder/config" 2>"$folder/speaking.txt" &
speaking=$!
started+=("$speaking")
until_true has_window || fail "no second window"
is_loaded $speaking || fail "the speech library is not loaded"
xdotool key Return  # past the splash picture
until_true was_said "Menü" || fail "the menu was not read"
# With nothing to save the strip says why, in other words while the splash picture is still there.
was_refused() { was_said "Es gibt noch nichts zu sichern" || was_said "Das geht im Menü"; }
saves_nothing() { xdotool key s && sleep 0.3 && was_refused; }
until_true saves_nothing || fail "the strip's message was not read"
# The list over the picture is read, and the focus on it.
xdotool key m
until_true was_said "Welches Mikrofon?" || fail "the list of microphones was not read"
xdotool key Up
until_true was_said "Schließen" || fail "the focus on the list was not read"
# A message is read with the word of what it offers.
xdotool key Escape F12
until_true was_said "Bildschirmfoto" || fail "the message of a picture was not read"
until_true was_said "Anzeigen" || fail "what the message offers was not read"
# A server that ends later is reported once, and everything else works.
kill "${started[0]}"
wait "${started[0]}" 2>/dev/null
was_told() { grep -q "Nothing can be read aloud: the speech server has ended" "$folder/speaking.txt"; }
tells_the_end() { xdotool key m && sleep 0.3 && was_told; }
until_true tells_the_end || fail "the end of the server was not told"
title() { xdotool search --onlyvisible --name ' - Murmelo$' getwindowname 2>/dev/null; }
xdotool key Escape Escape
before=$(title)
xdotool key m Escape
pressed() { xdotool key Return && sleep 0.3 && [[ $(title) != "$before" ]]; }
until_true pressed || fail "without the server the program takes no keys"
[[ $(grep -c "Nothing can be read aloud" "$folder/speaking.txt") == 1 ]] || fail "the end of the server was told again"
kill $speaking
wait $speaking || fail "the speaking program ended badly"

# A missing server is reported, and everything else works.
export SPEECHD_ADDRESS=inet_socket:127.0.0.1:1
"$program" --speak --home "$folder/home" --config "$folder/config" 2>"$folder/alone.txt" &
alone=$!
started+=("$alone")
until_true grep -q "Nothing can be read aloud" "$folder/alone.txt" || fail "a missing server was not told"
kill $alone
wait $alone || fail "the program without a server ended badly"
echo "ok"
