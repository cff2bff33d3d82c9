# SPDX-License-Identifier: MIT
# Shared by the tests of the packaging, which source it: makes a folder of their own, and counts errors.
# shellcheck shell=bash disable=SC2034,SC2154  # the scripts that source it look at "failed" and set "source" and "build"
set -u
export LC_ALL=C.UTF-8  # [a-z] and the order of names depend on it
export MANWIDTH=80
# shellcheck source=tests/support/checks.sh
. "$(dirname "${BASH_SOURCE[0]}")/../support/checks.sh"
unset MURMELO_DATA MURMELO_HOME XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME DESTDIR

# stage BUILD DESTDIR PREFIX: installs, with the notes for uninstalling in $folder: the notes of the build folder
# may belong to a real installation.
stage() {
    # With a umask that makes files private.
    (umask 077 && DESTDIR=$2 MURMELO_INSTALL_NOTES=$folder cmake --install "$1" --prefix "$3") >"$folder/log" 2>&1 ||
        report_error "installing failed: $(cat "$folder/log")"
}

unstage() { # DESTDIR
    DESTDIR=$1 cmake -DBUILD_DIR="$folder" -P "$source/cmake/Uninstall.cmake" >"$folder/log" 2>&1 ||
        report_error "uninstalling failed: $(cat "$folder/log")"
}

# Lists every file, folder and link below a folder, with its content.
inventory() {
    (cd "$1" && find . -printf '%p %y %m %l\n' | sort && find . -type f -exec sha1sum {} + | sort)
}

# journey PREFIX: runs a journey with the programs installed there, from another folder and as a new user. After it,
# $folder/user holds that user's files.
journey() {
    local bin=$1/bin
    rm -rf "$folder/user" "$folder/elsewhere"
    mkdir -p "$folder/user" "$folder/elsewhere"
    cat >"$folder/elsewhere/robot.txt" <<'END'
mic hello.wav
speaker heard.wav
key middle
until Options
shot options.png
tap 240 554
key middle
wait 4000
key middle
until Play
swipe left
expect effect 1
key middle
until Playing
until Play
save
expect file rec_00000.wav
shot play.png
END
    cp "$source/res/sample/hello.wav" "$folder/elsewhere/"
    (cd "$folder/elsewhere" && HOME=$folder/user "$bin/murmelo-headless" robot.txt) ||
        report_error "the journey failed with $bin/murmelo-headless"
}

# After a journey: checks that its pictures, and so its fonts, equal those of the build folder, byte for byte.
expect_same_pictures() {
    mkdir "$folder/here"
    mv "$folder/elsewhere"/*.png "$folder/here"
    (cd "$folder/elsewhere" && "$build/murmelo-headless" --home home --config config robot.txt) ||
        report_error "the journey failed in the build folder"
    for picture in options play; do
        cmp "$folder/here/$picture.png" "$folder/elsewhere/$picture.png" || report_error "$picture differs"
    done
}

# The robot speaks at 89 Hz, whatever the voice is.
expect_robot() { # PREFIX SOUND
    local facts
    facts=$("$1/bin/murmelo-fx" --measure "$2")
    grep -qE 'pitch 8[89]\.[0-9] Hz' <<<"$facts" || report_error "this is no robot: $facts"
}
