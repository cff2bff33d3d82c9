#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs one journey and checks everything that it leaves on the disk.
#
#   run-flow.sh SCRIPT PROGRAM HEARD SOURCE
#
# PROGRAM is murmelo-headless, HEARD the program that compares the sound of the speaker with the
# effects themselves, SOURCE the source tree. The journey starts with an empty home and no settings, in a
# folder of its own with hello.wav. Every frame must show what was painted. Comments of the script
# prepare the journey and say what it must leave:
#
#   #! home NAME [FILE]     a file in the sound folder beforehand (FILE: its content; else a text)
#   #! folder NAME          a folder in the sound folder beforehand, with a file "kept" in it
#   #! pipe NAME            a pipe in the sound folder beforehand
#   #! link NAME TARGET     a symbolic link in the sound folder beforehand
#   #! elsewhere            the sound folder is a symbolic link to a folder outside the home
#   #! config LINE          a line of the settings beforehand
#   #! args WORD...         more arguments for the program
#   #! left NAME...         files in the sound folder afterwards (none without this line)
#   #! same NAME NAME       two files of the sound folder are equal afterwards
#   #! alike NAME NAME      two pictures that the script took are equal afterwards
#   #! unlike NAME NAME     two pictures that the script took differ afterwards
#   #! settings LINE        the settings afterwards ("none": there are none; without this line: not checked)
#   #! heard FILE EFFECT VOICE TAKE_MS VOLUME [heard=MS] [clock=MS]
#                           the sound that the speaker has written to FILE (see heard.cpp)
#   #! status N             exit status; 0 without this line
#   #! error TEXT           the next line on standard error contains this; there must be no other lines
#   #! again                the next lines are another run with the same home and settings
set -u
export LC_ALL=C.UTF-8  # [a-z] and the order of names depend on it
export MURMELO_CHECK_FRAMES=1
script=$(realpath "$1") program=$(realpath "$2") heard=$(realpath "$3") source=$(realpath "$4")

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir home config
ln -s "$source/res/sample/hello.wav" hello.wav

failed=0
report_error() {
    echo "$(basename "$script"): $*" >&2
    failed=1
}

# directives NAME PART: the arguments of each directive of that name in a part of the script.
directives() {
    sed -n "s/^#! $1\( \|\$\)//p" "$2"
}

prepare() {
    local name file line
    if grep -q '^#! elsewhere' "$1"; then
        mkdir sounds
        ln -s "$folder/sounds" home/Murmelo
    elif grep -qE '^#! (folder|pipe|link) ' "$1"; then
        mkdir -p home/Murmelo
    fi
    while read -r name file; do
        mkdir -p home/Murmelo
        if [ -n "$file" ]; then cp "$file" "home/Murmelo/$name"; else echo kept >"home/Murmelo/$name"; fi
    done < <(directives home "$1")
    while read -r name; do
        mkdir -p "home/Murmelo/$name"
        echo kept >"home/Murmelo/$name/kept"
    done < <(directives folder "$1")
    while read -r name; do mkfifo "home/Murmelo/$name"; done < <(directives pipe "$1")
    while read -r name file; do ln -s "$file" "home/Murmelo/$name"; done < <(directives link "$1")
    while read -r line; do echo "$line" >>config/settings; done < <(directives config "$1")
}

judge() {
    local part=$1 status=$2 wanted error lines line first second
    wanted=$(directives status "$part")
    [ "$status" = "${wanted:-0}" ] || report_error "status $status instead of ${wanted:-0}"
    lines=0
    while read -r error; do
        lines=$((lines + 1))
        sed -n "${lines}p" stderr | grep -qF -- "$error" || report_error "line $lines of standard error lacks \"$error\""
    done < <(directives error "$part")
    [ "$(wc -l <stderr)" = $lines ] || report_error "standard error is \"$(cat stderr)\", wanted $lines lines"
    wanted=$(directives left "$part" | tr ' ' '\n' | sed '/^$/d' | sort)
    line=$(find home/Murmelo/ -mindepth 1 -maxdepth 1 -printf '%f\n' 2>/dev/null | sort)
    [ "$line" = "$wanted" ] || report_error "left \"${line//$'\n'/ }\" instead of \"${wanted//$'\n'/ }\""
    while read -r first second; do
        cmp -s "home/Murmelo/$first" "home/Murmelo/$second" || report_error "$first is not $second"
    done < <(directives same "$part")
    while read -r first second; do
        cmp -s "$first" "$second" || report_error "$first does not look like $second"
    done < <(directives alike "$part")
    while read -r first second; do
        if [ ! -s "$first" ] || [ ! -s "$second" ] || cmp -s "$first" "$second"; then
            report_error "$first looks like $second"
        fi
    done < <(directives unlike "$part")
    while read -r line; do
        if [ "$line" = none ]; then
            [ ! -e config/settings ] || report_error "there are settings: $(cat config/settings)"
        else
            grep -qxF -- "$line" config/settings 2>/dev/null || report_error "no setting \"$line\""
        fi
    done < <(directives settings "$part")
    while read -r line; do
        # shellcheck disable=SC2086  # the words of the directive
        "$heard" $line || report_error "heard something else: $line"
    done < <(directives heard "$part")
}

csplit -s -z -f part- -b %02d "$script" '/^#! again/' '{*}'
for part in part-*; do
    prepare "$part"
    # shellcheck disable=SC2046  # each word is an argument
    "$program" --home home --config config $(directives args "$part") "$part" >stdout 2>stderr
    judge "$part" $?
    [ ! -s stdout ] || report_error "standard output: $(cat stdout)"
done
exit $failed
