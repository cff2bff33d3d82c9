#!/bin/bash
# SPDX-License-Identifier: MIT
# Checks the one sentence that murmelo-headless prints for each kind of error, and its exit status.
#
#   run-status.sh CASE PROGRAM SOURCE
set -u
export LC_ALL=C.UTF-8  # [a-z] and the order of names depend on it
program=$(realpath "$2") source=$(realpath "$3")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir home config
echo 'expect screen FirstLang' >fine
unset MURMELO_DATA MURMELO_HOME

failed=0

# expect STATUS TEXT COMMAND...: checks the status, and that the one line on standard error has TEXT ("": no line).
expect() {
    local status=$1 text=$2 found
    shift 2
    "$@" </dev/null >stdout 2>stderr
    found=$?
    if [ $found != "$status" ]; then
        echo "status $found instead of $status: $*" >&2
        failed=1
    fi
    if [ -z "$text" ] && [ -s stderr ]; then
        echo "standard error is not empty: $*: $(cat stderr)" >&2
        failed=1
    elif [ -n "$text" ] && { [ "$(wc -l <stderr)" != 1 ] || ! grep -qF -- "$text" stderr; }; then
        echo "wanted one line with \"$text\", found: $(cat stderr)" >&2
        failed=1
    fi
}

run=("$program" --home home --config config)

# line STATUS TEXT LINE: checks a script of one line, which fails.
line() {
    echo "$3" >line
    expect "$1" "line 1: $2" "${run[@]}" line
}

case $1 in
script-mistakes)
    line 2 'there is no command "jump"' 'jump 3'
    line 2 '"tap" needs X Y' 'tap 3'
    line 2 '"x" is not a number' 'tap 3 x'
    line 2 '"9" is too much' 'tap 3 4 9'
    line 2 '"key" needs left, middle or right' 'key up'
    line 2 '"expect" needs screen, file, no file, effect or ended' 'expect'
    line 2 '"lose" needs microphone or speaker' 'lose voice'
    line 2 'there is no screen "Menu", only Splash, FirstLang, ' 'until Menu'
    line 2 'there is no operation "Write", only AppRegistry.Write, ' 'fail Write 1'
    expect 2 'the script "none" cannot be read' "${run[@]}" none
    head -c 4096 /dev/urandom | tr -d '#\n' | sed 's/^/x/' >noise
    expect 2 'line 1: there is no command' "${run[@]}" noise
    printf 'expect screen FirstLang\n\n# fine\nwait\n' >fourth
    expect 2 'line 4: "wait" needs MS' "${run[@]}" fourth
    ;;
usage)
    for words in '' '--nonsense fine' '--clock-start x fine' 'fine fine'; do
        # shellcheck disable=SC2086  # each word is an argument
        expect 2 ' (see murmelo-headless --help)' "$program" $words
        grep -q '^murmelo-headless: .' stderr || failed=1
    done
    expect 0 '' "$program" --help
    grep -q -- --home stdout || failed=1
    expect 0 '' "$program" --version
    ;;
failed-expectations)
    line 1 'expected screen "Play", found "FirstLang"' 'expect screen Play'
    line 1 'expected screen "Play", found "FirstLang"' 'until Play 50'
    line 1 'expected file "a.wav", there is none' 'expect file a.wav'
    line 2 '"last" needs --state DIR' 'last'
    line 2 '"forget" needs --state DIR' 'forget'
    line 1 'expected effect 3, found 0' 'expect effect 3'
    line 1 'expected the program to have ended' 'expect ended'
    line 1 'there is no file "a.wav" to remove' 'remove a.wav'
    line 1 'the microphone is not in use' 'lose microphone'
    line 1 'the speaker is not in use' 'lose speaker'
    printf 'key middle\nexpect screen Splash\nstill 2000\nstill 2000\n' >awake
    expect 1 'line 4: something is due in 1000 ms' "${run[@]}" awake
    rm config/*
    mkdir -p home/Murmelo
    touch home/Murmelo/a.wav
    line 1 'expected no file "a.wav", there is one' 'expect no file a.wav'
    printf 'key right\nuntil Splash\n' >ended
    expect 1 'line 2: the program has ended' "${run[@]}" ended
    line 2 'the sound "fine" cannot be read' 'mic fine'
    line 2 'the sound "/nowhere/a.wav" cannot be written' 'speaker /nowhere/a.wav'
    line 2 '"/nowhere/a.png" cannot be written' 'shot /nowhere/a.png'
    ;;
pictures-missing)
    cp "$program" alone
    expect 1 'the folder with the pictures, "Res", is missing' \
        ./alone --home home --config config fine
    # With an empty folder of pictures, or damaged files in it, nothing is visible, but everything works.
    mkdir -p data/Res
    printf 'expect screen FirstLang\nkey middle\nuntil Options\nkey right\nexpect ended\n' >blind
    expect 0 '' env MURMELO_DATA="$folder/data" ./alone --home home --config config blind
    rm -r config
    for name in "$source"/res/Res/*; do
        head -c 100 "$name" >"data/Res/$(basename "$name")"
    done
    expect 0 '' env MURMELO_DATA="$folder/data" ./alone --home home --config config blind
    ;;
home-not-writable)
    expect 1 'the home folder "fine/home" cannot be made' \
        "$program" --home fine/home --config config fine
    expect 1 'cannot be made' "$program" --home fine --config config fine
    expect 1 'the home folder "/proc" cannot be written' \
        "$program" --home /proc --config config fine
    ;;
settings-not-writable)
    # The language is used in this run; the next one asks again.
    printf 'tap 240 432\nkey middle\nexpect screen Splash\nuntil Options\n' >spanish
    expect 0 '' "$program" --home home --config fine spanish
    expect 0 '' "$program" --home home --config fine fine
    ;;
second-instance)
    expect 1 'Murmelo is already running with the home folder' \
        flock -n home/.murmelo.lock "${run[@]}" fine
    expect 0 '' "${run[@]}" fine
    mkdir other
    expect 0 '' flock -n home/.murmelo.lock "$program" --home other --config config fine
    ;;
sound-folder)
    # Whatever is wrong with the folder, the sentence names it, and after it the screen shows its message.
    printf 'key middle\nexpect screen MessageAndQuit\nkey middle\nexpect ended\n' >refused
    ln -s "$folder/disk/sounds" home/Murmelo
    expect 0 "the folder \"$folder/disk/sounds\" cannot be made: No such file or directory" "${run[@]}" refused
    rm -r home/Murmelo config
    touch home/Murmelo
    expect 0 "the folder \"$folder/home/Murmelo\" cannot be made: File exists" "${run[@]}" refused
    rm -r home/Murmelo config
    mkdir disk
    ln -s "$folder/disk/sounds" home/Murmelo
    printf 'key middle\nuntil Options\n' >menu
    expect 0 '' "${run[@]}" menu
    [ -d disk/sounds ] || failed=1
    rm -r disk/sounds config
    touch disk/sounds
    expect 0 "the folder \"$folder/disk/sounds\" cannot be made: File exists" "${run[@]}" refused
    ;;
lock-in-the-way)
    echo precious >mine
    ln -s ../mine home/.murmelo.lock
    expect 1 '.murmelo.lock" is not a lock file of Murmelo: remove it' "${run[@]}" fine
    [ "$(cat mine)" = precious ] && [ -L home/.murmelo.lock ] || failed=1
    rm home/.murmelo.lock
    mkfifo home/.murmelo.lock
    expect 1 '.murmelo.lock" is not a lock file of Murmelo: remove it' "${run[@]}" fine
    [ -p home/.murmelo.lock ] || failed=1
    ;;
remove-stays-inside)
    mkdir -p home/Murmelo/folder
    touch home/outside home/Murmelo/folder/inside
    for name in ../outside "$folder/home/outside" folder/inside . ..; do
        line 2 "\"$name\" is not the name of a file in the sound folder" "remove $name"
    done
    line 2 '"../outside" is not the name of a file' 'remove ../outside'
    [ -e home/outside ] && [ -e home/Murmelo/folder/inside ] || failed=1
    touch home/Murmelo/a.wav
    ln -s ../outside home/Murmelo/link
    printf 'remove a.wav\nremove link\nexpect no file a.wav\n' >inside
    expect 0 '' "${run[@]}" inside
    [ -e home/outside ] || failed=1
    ;;
odd-scripts)
    mkfifo pipe
    cat fine >pipe &
    expect 0 '' "${run[@]}" pipe
    wait
    expect 0 '' bash -c '"$@" - <fine' _ "${run[@]}"
    expect 0 '' bash -c 'cat fine | "$@" -' _ "${run[@]}"
    expect 0 '' bash -c '"$@" <(cat fine)' _ "${run[@]}"
    expect 2 'the script "home" cannot be read: Is a directory' "${run[@]}" home
    expect 2 'the script "-" cannot be read: Is a directory' bash -c '"$@" - <home' _ "${run[@]}"
    expect 2 'the script "-" cannot be read: Bad file descriptor' bash -c '"$@" - <&-' _ "${run[@]}"
    # A file that can be opened, but not read.
    expect 2 'the script "/proc/self/mem" cannot be read: Input/output error' "${run[@]}" /proc/self/mem
    ;;
odd-sounds)
    mkfifo pipe
    for name in pipe home /dev/zero; do
        line 2 "the sound \"$name\" cannot be read: it is a" "mic $name"
    done
    printf 'key middle\nuntil Options\ntake pipe\n' >taken
    expect 2 'line 3: the sound "pipe" cannot be read: it is a pipe' "${run[@]}" taken
    for name in pipe home /dev/zero; do
        expect 1 "the sound \"$name\" cannot be read: it is a" \
            "$(dirname "$program")/murmelo" --home home --config config $name
    done
    ;;
settings-out-of-reach)
    # The language is used in this run, and nothing is written.
    printf 'tap 240 432\nkey middle\nexpect screen Splash\nuntil Options\n' >spanish
    mkfifo config/settings
    expect 0 'config/settings" cannot be read and stay as they are: it is a pipe' "${run[@]}" spanish
    [ -p config/settings ] && [ "$(ls config)" = settings ] || failed=1
    rm config/settings
    ln -s /proc/self/mem config/settings
    expect 0 'cannot be read and stay as they are: Input/output error' "${run[@]}" spanish
    [ -L config/settings ] && [ "$(ls config)" = settings ] || failed=1
    ;;
settings-elsewhere)
    printf 'tap 240 432\nkey middle\nexpect screen Splash\n' >spanish
    mkdir dotfiles
    ln -s "$folder/dotfiles/murmelo" config/settings
    expect 0 '' "${run[@]}" spanish
    [ -L config/settings ] && [ "$(cat dotfiles/murmelo)" = lang=2 ] || failed=1
    [ "$(echo config/* dotfiles/*)" = 'config/settings dotfiles/murmelo' ] || failed=1
    echo 'expect screen Splash' >later
    expect 0 '' "${run[@]}" later
    ;;
*)
    echo "there is no case \"$1\"" >&2
    failed=1
    ;;
esac
exit $failed
