#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the demonstration of the command line tool: a row and a sound for each effect, with the length and the pitch that
# README promises.
#
#   demo.sh MURMELO_FX SOURCE
set -u
fx=$(realpath "$1") source=$(realpath "$2")
# shellcheck source=tests/support/checks.sh
. "$(dirname "$0")/../support/checks.sh"

"$source/tools/demo.sh" "$fx" "$source/res/sample/hello.wav" "$folder/results" >"$folder/rows" || report_error "demo.sh fails"
cat "$folder/rows"
diff <("$fx" --list | cut -d ' ' -f 1) <(tail -n +2 "$folder/rows" | cut -d ' ' -f 1) ||
    report_error "--list (<) and the demonstration (>) have other effects"

# expect EFFECT LONGER HIGHER: how many times as long and as high the result is; - for "not to be predicted".
expect() {
    local row
    row=$(grep "^$1 " "$folder/rows") || { report_error "there is no row for $1"; return; }
    [ -s "$folder/results/$1.wav" ] || report_error "there is no sound for $1"
    # Columns: effect, length -> length, level -> level, pitch -> pitch, file
    awk -v longer="$2" -v higher="$3" '
        function near(got, wanted) { return wanted == "-" || got > wanted * 0.95 && got < wanted * 1.05 }
        { exit !(near($4 / $2, longer) && near($10 / $8, higher)) }' <<<"$row" ||
        report_error "not $2 times as long and $3 times as high: $row"
}
expect none 1 1
expect robot 1 -
expect backwards 1 1
expect high 1 1.8
expect low 1 0.75
expect fast 0.5 1
expect drunk 2 -
expect flip 1 -
awk '$1 == "robot" && $10 > 88 && $10 < 90 { found = 1 } END { exit !found }' "$folder/rows" ||
    report_error "the robot is not at 89 Hz"

"$source/tools/demo.sh" "$fx" "$source/README.md" "$folder/none" >"$folder/output" 2>&1 &&
    report_error "a text is taken for a sound"
grep -q "README.md" "$folder/output" || report_error "the message does not name the file: $(cat "$folder/output")"
exit $failed
