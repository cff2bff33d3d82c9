#!/usr/bin/env bash
# The man page renders without a warning, the completions parse, and all three know every option and effect that the
# tool itself knows:  check-docs.sh MURMELO_FX SOURCE_DIR
set -eu
fx=$1 root=$2
page=$root/docs/man/murmelo-fx.1
bash_completion=$root/packaging/completion/murmelo-fx.bash
zsh_completion=$root/packaging/completion/_murmelo-fx
wrong=0
complain() { echo "$1"; wrong=1; }

warnings=$(groff -ww -man -Tutf8 "$page" 2>&1 >/dev/null)
[ -z "$warnings" ] || complain "groff: $warnings"
warnings=$(MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 "$page" 2>&1 >/dev/null)
[ -z "$warnings" ] || complain "man: $warnings"
bash -n "$bash_completion" || complain "$bash_completion does not parse"
if command -v zsh >/dev/null; then
    zsh -n "$zsh_completion" || complain "$zsh_completion does not parse"
fi

text=$(groff -man -Tascii -P-cbou "$page")
options=$("$fx" --help | grep -oE -- '--[a-z][a-z-]*' | sort -u)
effects=$("$fx" --list | cut -d ' ' -f 1)
[ "$(wc -l <<<"$options")" -ge 10 ] || complain "--help names too few options: $options"
[ "$(wc -l <<<"$effects")" -eq 8 ] || complain "--list does not name eight effects: $effects"
for word in $options $effects; do
    grep -qE -- "(^|[^a-z-])$word([^a-z-]|$)" <<<"$text" || complain "the man page does not mention $word"
    grep -qE -- "(^|[^a-z-])$word([^a-z-]|$)" "$bash_completion" || complain "bash does not complete $word"
    grep -qE -- "(^|[^a-z-])$word([^a-z-]|$)" "$zsh_completion" || complain "zsh does not complete $word"
done

# What a user of bash gets to see.
complete_words() {  # LINE...: the words offered for the last one
    # shellcheck disable=SC1090
    (
        compopt() { :; }
        source "$bash_completion"
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
        _murmelo_fx
        echo "${COMPREPLY[*]}"
    )
}
expect() {  # WANTED LINE...
    local wanted=$1
    shift
    local got
    got=$(complete_words "$@")
    [ "$got" = "$wanted" ] || complain "completion of '$*' is '$got', not '$wanted'"
}
cd "$root/res/sample"
expect "$(tr '\n' ' ' <<<"$effects" | sed 's/ $//')" murmelo-fx ""
expect "robot" murmelo-fx r
expect "robot" murmelo-fx --seed 5 r
expect "hello.wav" murmelo-fx robot h
expect "hello.wav" murmelo-fx robot --seed 5 hello.wav h
expect "hello.wav" murmelo-fx --measure h
expect "--measure" murmelo-fx --m
expect "flac" murmelo-fx robot --format f
expect "" murmelo-fx --seed ""

exit $wrong
