#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks what bash, zsh and fish offer for a program: all its options and no others, its effects, files and folders.
#
#   completions.sh PROGRAM SOURCE
program=$(realpath "$1") source=$(realpath "$2")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"
name=$(basename "$program")
export PATH=${program%/*}:$PATH # completions ask the program for its effects and devices
for_bash=$source/packaging/completion/$name.bash
for_zsh=$source/packaging/completion/_$name
for_fish=$source/packaging/completion/$name.fish

bash -n "$for_bash" || report_error "$for_bash does not parse"
zsh -n "$for_zsh" || report_error "$for_zsh does not parse"
fish --no-execute "$for_fish" || report_error "$for_fish does not parse"

"$program" --help | sed -n '/^Options:/,/^$/p' | grep -oE -- '--[a-z][a-z-]*' | sort -u >"$folder/helped"
[ "$(wc -l <"$folder/helped")" -ge 6 ] || report_error "--help names too few options: $(cat "$folder/helped")"

# The words that bash offers for the last word of a line.
offered() {
    bash -c '
        compopt() { :; }
        source "$1"
        shift
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
        read -ra how < <(complete -p "$(basename "$1")") # complete -F FUNCTION NAME
        "${how[2]}"
        printf "%s\n" "${COMPREPLY[@]}"' - "$for_bash" "$@"
}

expect() { # WANTED WORD...: what bash offers, in one line
    local wanted=$1 got
    shift
    got=$(offered "$@" | sort | tr '\n' ' ')
    [ "${got% }" = "$wanted" ] || report_error "bash completes '$*' to '$got' and not to '$wanted'"
}

offered "$name" -- | sort >"$folder/bash"
diff "$folder/helped" "$folder/bash" || report_error "--help (<) and bash (>) have other options"

# The words that fish offers for the last word of a line.
offered_by_fish() { # LINE
    # shellcheck disable=SC2016  # fish expands them
    XDG_CONFIG_HOME=$folder/fish XDG_DATA_HOME=$folder/fish HOME=$folder/fish \
        fish --no-config -c 'source $argv[1]; complete -C $argv[2]' "$for_fish" "$1" 2>>"$folder/fish-error" | cut -f 1 | sort -u
}

expect_of_fish() { # WANTED LINE
    local got
    got=$(offered_by_fish "$2" | tr '\n' ' ')
    [ "${got% }" = "$1" ] || report_error "fish completes '$2' to '$got' and not to '$1'"
}

offered_by_fish "$name --" | grep -E -- '^--[a-z]' >"$folder/fish-options"
diff "$folder/helped" "$folder/fish-options" || report_error "--help (<) and fish (>) have other options"

# A zsh in a pseudo terminal, asked with the tab key. Without pseudo terminals the options are read from its file, and the
# test counts as skipped if the rest passes.
passed=0
if zsh -fc 'zmodload zsh/zpty && zpty probe true' 2>/dev/null; then
    zsh -f "$source/tests/packaging/zsh-offers" "$source/packaging/completion" "$name --" >"$folder/zsh-output"
    tr -s '[:space:]' '\n' <"$folder/zsh-output" | grep -E -- '^--[a-z]' | sort -u >"$folder/zsh"
else
    echo "skipped: there are no pseudo terminals, so the tab key of zsh is not tried"
    passed=77
    grep -oE -- "--[a-z][a-z-]+" "$for_zsh" | sort -u >"$folder/zsh"
fi
diff "$folder/helped" "$folder/zsh" || report_error "--help (<) and zsh (>) have other options"

mkdir -p "$folder/here/some folder"
cd "$folder/here" || exit 1
touch voice.wav verse.txt
case $name in
murmelo-fx)
    effects=$("$program" --list | cut -d ' ' -f 1 | sort | tr '\n' ' ')
    expect "${effects% }" "$name" ""
    expect_of_fish "${effects% }" "$name "
    formats=$("$program" --help | sed -n 's/^ *--format KIND *\(.*\), where.*/\1/p' |
        tr -c 'a-z0-9' '\n' | grep -vxE '|or' | sort | tr '\n' ' ')
    formats=${formats% }
    expect "$formats" "$name" robot --format ""
    expect_of_fish "$formats" "$name robot --format "
    [[ $formats == *" wav" ]] || report_error "--help names the formats '$formats'"
    expect_of_fish robot "$name --seed 5 --long r"
    expect_of_fish voice.wav "$name robot vo"
    expect_of_fish voice.wav "$name --measure vo"
    expect_of_fish flac "$name robot --format f"
    if [ -s "$folder/zsh-output" ]; then
        zsh -f "$source/tests/packaging/zsh-offers" "$source/packaging/completion" "$name --format " |
            tr -s '[:space:]' '\n' | grep -xE '[a-z0-9]+' | sort | tr '\n' ' ' >"$folder/zsh-formats"
        [ "$(cat "$folder/zsh-formats")" = "$formats " ] ||
            report_error "zsh offers $(cat "$folder/zsh-formats") and not $formats"
        zsh -f "$source/tests/packaging/zsh-offers" "$source/packaging/completion" "$name " |
            tr -s '[:space:]' '\n' | grep -xE '[a-z]+' | sort | tr '\n' ' ' >"$folder/zsh-effects"
        [ "$(cat "$folder/zsh-effects")" = "$effects" ] ||
            report_error "zsh offers $(cat "$folder/zsh-effects") and not $effects"
    fi
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
    # The names of devices, as the program lists them.
    cat >murmelo <<'END'
#!/bin/sh
printf 'Microphones:\n  Headset Mono\n  Built-in\nSpeakers:\n  Hall\n'
END
    chmod +x murmelo
    PATH=$PWD:$PATH
    expect "Headset Mono" "$name" --microphone H
    expect_of_fish "Headset Mono" "$name --microphone H"
    expect "Hall" "$name" --speaker ""
    expect_of_fish "Hall" "$name --speaker "
    printf '#!/bin/sh\nprintf "Microphones:\\n  (none)\\nSpeakers:\\n  (none)\\n"\n' >murmelo
    expect "" "$name" --speaker ""
    expect_of_fish "" "$name --speaker "
    expect_of_fish "some folder/" "$name --home so"
    ;;
murmelo-headless)
    expect verse.txt "$name" ve
    expect "some folder" "$name" --home ""
    expect "some folder" "$name" --config = ""
    expect "" "$name" --clock-start ""
    expect_of_fish verse.txt "$name ve"
    expect_of_fish "some folder/" "$name --home so"
    ;;
esac
[ ! -s "$folder/fish-error" ] || report_error "fish: $(cat "$folder/fish-error")"
[ $failed -ne 0 ] || exit $passed
exit $failed
