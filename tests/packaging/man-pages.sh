#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks that a program's man page renders without a warning, and has exactly the program's options.
#
#   man-pages.sh PROGRAM SOURCE
program=$(realpath "$1") source=$(realpath "$2")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"
name=$(basename "$program")
page=$source/docs/man/$name.1

warnings=$(groff -ww -man -Tutf8 "$page" 2>&1 >/dev/null)
[ -z "$warnings" ] || report_error "groff: $warnings"
warnings=$(MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 "$page" 2>&1 >/dev/null)
[ -z "$warnings" ] || report_error "man: $warnings"
lexgrog "$page" | grep -q "\"$name - " || report_error "whatis would not find it: $(lexgrog "$page")"

groff -man -Tascii -P-cbou "$page" >"$folder/text"
sed -n '/^OPTIONS/,/^[A-Z]/p' "$folder/text" | grep -E '^ {7}-' >"$folder/entries"
option='-(-[a-z][a-z-]*|[a-z]\b)'
"$program" --help | sed -n '/^Options:/,/^$/p' | grep -oE -- " $option|,$option" | tr -d ' ,' | sort -u >"$folder/helped"
grep -oE -- "(^| )$option" "$folder/entries" | tr -d ' ' | sort -u >"$folder/written"
[ "$(wc -l <"$folder/helped")" -ge 7 ] || report_error "--help names too few options: $(cat "$folder/helped")"
diff "$folder/helped" "$folder/written" || report_error "--help (<) and the man page (>) have other options"

"$program" --nonsense >"$folder/stdout" 2>"$folder/stderr" && report_error "an unknown option is accepted"
[[ $(cat "$folder/stdout" "$folder/stderr") =~ ^"$name: "[^$'\n']+" (see $name --help)"$ ]] ||
    report_error "an unknown option is reported as: $(cat "$folder/stdout" "$folder/stderr")"

case $name in
murmelo-fx)
    for effect in $("$program" --list | cut -d ' ' -f 1); do
        grep -qE "^ {7}$effect$|^ {7}$effect  " "$folder/text" || report_error "the effect $effect is not explained"
    done
    ;;
esac
if [ "$name" != murmelo-fx ]; then
    sed -n '/^ENVIRONMENT/,/^FILES/p' "$folder/text" >"$folder/environment"
    # The names of the variables are those that are in the program's file.
    variables=$(grep -aohE '\b(MURMELO_(HOME|DATA|CONFIG)|XDG_(CONFIG|DATA|CACHE|STATE)_HOME)\b' "$program" | sort -u)
    [ "$(wc -w <<<"$variables")" -ge 4 ] || report_error "too few variables: $variables"
    for variable in $variables; do
        grep -q "$variable" "$folder/environment" || report_error "the variable $variable is not explained"
    done
fi
sed -n '/^EXIT STATUS/,/^[A-DF-Z]/p' "$folder/text" >"$folder/statuses"
for status in 0 1 2; do
    grep -qE "^ {7}$status " "$folder/statuses" || report_error "the exit status $status is not explained"
done
if [ "$name" = murmelo-headless ]; then
    grep -qE '^ {7}128 \+ N' "$folder/statuses" || report_error "the exit status of a signal is not explained"
fi
exit $failed
