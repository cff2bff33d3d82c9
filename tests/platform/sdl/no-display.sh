#!/bin/bash
# SPDX-License-Identifier: MIT
# no-display.sh PROGRAM: checks what murmelo does without a display. Needs none itself.
set -u
program=$(realpath "$1")
folder=$(mktemp -d)
running=
# shellcheck disable=SC2317  # called by the trap
clean() {
    [ -z "$running" ] || kill -KILL "$running" 2>/dev/null
    rm -rf "$folder"
}
trap clean EXIT
cd "$folder" || exit 1
unset DISPLAY WAYLAND_DISPLAY SDL_VIDEODRIVER MURMELO_HOME DBUS_SESSION_BUS_ADDRESS
mkdir home config
echo lang=0 >config/settings
export XDG_RUNTIME_DIR=$folder XDG_STATE_HOME=$folder/state SDL_AUDIODRIVER=dummy
failed=0

report_error() {
    echo "$*" >&2
    failed=1
}

# refused TEXT NAME=VALUE...: checks that with these variables it ends with status 1 and one sentence that has TEXT.
refused() {
    local text=$1 status
    shift
    env "$@" timeout --kill-after=5 60 "$program" --home home --config config >stdout 2>stderr
    status=$?
    [ $status = 1 ] || report_error "status $status with: $*"
    if [ "$(wc -l <stderr)" != 1 ] || ! grep -qF -- "$text" stderr || [ -s stdout ]; then
        report_error "wanted one line with \"$text\" with: $*; found: $(cat stdout stderr)"
    fi
}

refused 'murmelo: no window can be opened: there is no display'
refused 'murmelo: no window can be opened: there is no display' SDL_VIDEODRIVER=
refused 'murmelo: no window can be opened: there is no display' DISPLAY= WAYLAND_DISPLAY=
refused 'murmelo: no window can be opened: the display' DISPLAY=:9999
refused 'murmelo: no window can be opened: the display' WAYLAND_DISPLAY=nowhere
refused 'murmelo: no window can be opened: ' SDL_VIDEODRIVER=nonsense

# A driver without a window is used if it is named, and a signal ends the program.
for driver in offscreen dummy; do
    rm -rf home/Murmelo
    SDL_VIDEODRIVER=$driver "$program" --home home --config config >stdout 2>stderr &
    running=$!
    for ((i = 0; i < 600; i++)); do  # the opening makes the sound folder
        [ -d home/Murmelo ] && break
        sleep 0.1
    done
    kill -TERM $running
    for ((i = 0; i < 600; i++)); do
        kill -0 $running 2>/dev/null || break
        sleep 0.1
    done
    kill -KILL $running 2>/dev/null && report_error "$driver: SIGTERM was not heard"
    wait $running
    status=$?
    running=
    [ $status = 0 ] || report_error "$driver: status $status"
    [ ! -s stderr ] || report_error "$driver: standard error: $(cat stderr)"
done
exit $failed
