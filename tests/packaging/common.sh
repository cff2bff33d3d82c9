# SPDX-License-Identifier: MIT
# What the tests of the packaging share: a folder of their own, and complaints that are counted. Sourced.
# shellcheck shell=bash disable=SC2034,SC2154  # the scripts that source it look at "wrong" and set "source" and "build"
set -u
export LC_ALL=C.UTF-8  # [a-z] and the order of names depend on it
export MANWIDTH=80
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
unset MURMELO_DATA MURMELO_HOME XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME DESTDIR
wrong=0

complain() {
    echo "$1" >&2
    wrong=1
}

# stage BUILD DESTDIR PREFIX: installs, with the notes for uninstalling in $folder: those of the build folder may be of
# an installation that somebody means to take away again.
stage() {
    # By somebody whose own files are private.
    (umask 077 && DESTDIR=$2 MURMELO_INSTALL_NOTES=$folder cmake --install "$1" --prefix "$3") >"$folder/log" 2>&1 ||
        complain "installing failed: $(cat "$folder/log")"
}

unstage() { # DESTDIR
    DESTDIR=$1 cmake -DBUILD_DIR="$folder" -P "$source/cmake/Uninstall.cmake" >"$folder/log" 2>&1 ||
        complain "uninstalling failed: $(cat "$folder/log")"
}

# Every file, folder and link below a folder, with what it holds.
inventory() {
    (cd "$1" && find . -printf '%p %y %m %l\n' | sort && find . -type f -exec sha1sum {} + | sort)
}

# journey PREFIX: speaks through the programs installed there, from another folder and as a new user; in
# $folder/user is what that user has afterwards.
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
        complain "the journey failed with $bin/murmelo-headless"
}

# After a journey: its pictures, and so its fonts, are those of the build folder, to the byte.
expect_same_pictures() {
    mkdir "$folder/here"
    mv "$folder/elsewhere"/*.png "$folder/here"
    (cd "$folder/elsewhere" && "$build/murmelo-headless" --home home --config config robot.txt) ||
        complain "the journey failed in the build folder"
    for picture in options play; do
        cmp "$folder/here/$picture.png" "$folder/elsewhere/$picture.png" || complain "$picture differs"
    done
}

# The robot speaks at 89 Hz, whatever is said to it.
expect_robot() { # PREFIX SOUND
    local facts
    facts=$("$1/bin/murmelo-fx" --measure "$2")
    grep -qE 'pitch 8[89]\.[0-9] Hz' <<<"$facts" || complain "this is no robot: $facts"
}
