#!/usr/bin/env bash
# What bash and zsh offer for a program: every option that it has, and no other; its effects, files and folders.
#
#   completions.sh PROGRAM SOURCE
program=$(realpath "$1") source=$(realpath "$2")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"
name=$(basename "$program")
for_bash=$source/packaging/completion/$name.bash
for_zsh=$source/packaging/completion/_$name

bash -n "$for_bash" || complain "$for_bash does not parse"
zsh -n "$for_zsh" || complain "$for_zsh does not parse"

"$program" --help | sed -n '/^Options:/,/^$/p' | grep -oE -- '--[a-z][a-z-]*' | sort -u >"$folder/helped"
[ "$(wc -l <"$folder/helped")" -ge 6 ] || complain "--help names too few options: $(cat "$folder/helped")"

# The words that bash offers for the last of a line.
offered() {
    bash -c '
        compopt() { :; }
        source "$1"
        shift
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
        "$(complete -p "$(basename "$1")" | sed "s/.*-F \([^ ]*\) .*/\1/")"
        printf "%s\n" "${COMPREPLY[@]}"' - "$for_bash" "$@"
}

expect() { # WANTED WORD...: what bash offers, in one line
    local wanted=$1 got
    shift
    got=$(offered "$@" | sort | tr '\n' ' ')
    [ "${got% }" = "$wanted" ] || complain "bash completes '$*' to '$got' and not to '$wanted'"
}

offered "$name" -- | sort >"$folder/bash"
diff "$folder/helped" "$folder/bash" || complain "--help (<) and bash (>) have other options"

# A zsh in a terminal of its own, asked by the tab key; where there are no such terminals, its options are read.
if zsh -fc 'zmodload zsh/zpty && zpty probe true' 2>/dev/null; then
    zsh -f "$source/tests/packaging/zsh-offers" "$source/packaging/completion" "$name --" >"$folder/zsh-said"
    tr -s '[:space:]' '\n' <"$folder/zsh-said" | grep -E -- '^--[a-z]' | sort -u >"$folder/zsh"
else
    echo "no pseudo terminals: the tab key of zsh is not tried"
    grep -oE -- "--[a-z][a-z-]+" "$for_zsh" | sort -u >"$folder/zsh"
fi
diff "$folder/helped" "$folder/zsh" || complain "--help (<) and zsh (>) have other options"

mkdir -p "$folder/here/some folder"
cd "$folder/here" || exit 1
touch voice.wav verse.txt
case $name in
murmelo-fx)
    effects=$("$program" --list | cut -d ' ' -f 1 | sort | tr '\n' ' ')
    expect "${effects% }" "$name" ""
    expect robot "$name" r
    expect robot "$name" --seed 5 r
    expect robot "$name" --seed = 5 r
    expect voice.wav "$name" robot vo
    expect voice.wav "$name" robot --seed 5 hello.wav vo
    expect voice.wav "$name" --measure vo
    expect --measure "$name" --m
    expect flac "$name" robot --format f
    expect flac "$name" robot --format = f
    expect "" "$name" --seed ""
    expect "some folder" "$name" --out-dir ""
    ;;
murmelo)
    expect "verse.txt voice.wav" "$name" v
    expect voice.wav "$name" --silent vo
    expect "some folder" "$name" --home ""
    expect "some folder" "$name" --home = ""
    expect "some folder" "$name" --config ""
    expect voice.wav "$name" --microphone v
    # The names of devices, as the program tells them.
    cat >murmelo <<'END'
#!/bin/sh
printf 'Microphones:\n  Headset Mono\n  Built-in\nSpeakers:\n  Hall\n'
END
    chmod +x murmelo
    (PATH=$PWD:$PATH && expect "Headset Mono" "$name" --microphone H && exit $wrong) || wrong=1
    (PATH=$PWD:$PATH && expect "Hall" "$name" --speaker "" && exit $wrong) || wrong=1
    printf '#!/bin/sh\nprintf "Microphones:\\n  (none)\\nSpeakers:\\n  (none)\\n"\n' >murmelo
    (PATH=$PWD:$PATH && expect "" "$name" --speaker "" && exit $wrong) || wrong=1
    ;;
murmelo-headless)
    expect verse.txt "$name" ve
    expect "some folder" "$name" --home ""
    expect "some folder" "$name" --config = ""
    expect "" "$name" --clock-start ""
    ;;
esac
exit $wrong
