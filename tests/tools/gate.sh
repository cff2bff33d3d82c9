#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the scripts that check the project, in a folder where everything they call is replaced by a stub that only prints
# what the real program would print, and fails if FAIL says so.
#
#   gate.sh result SOURCE      the last line of ./test names what failed, and else it is the test runner's
#   gate.sh changed SOURCE     which files tools/lint --tidy-newest gives to clang-tidy
#   gate.sh arguments SOURCE   unknown arguments are refused, --help says how to call the script, and nothing begins
set -u
case=$1 source=$(realpath "$2")
# shellcheck source=tests/support/checks.sh
. "$(dirname "$0")/../support/checks.sh"

# stub FILE NAME: makes a program. With arguments that contain the text of the environment variable FAIL it fails.
stub() {
    mkdir -p "$(dirname "$1")"
    cat >"$1" <<EOF
#!/bin/bash
echo "$2 \$*" >>"$folder/calls"
what="$2 \$*"
status=0
[ -z "\${FAIL:-}" ] || [[ "\$what" != *"\$FAIL"* ]] || status=1
case "$2 \$status" in
    "ctest 0") printf '\n100%% tests passed, 0 tests failed out of 7\n\nTotal Test time (real) =   1.00 sec\n' ;;
    "ctest 1") printf '\n86%% tests passed, 1 tests failed out of 7\n\nTotal Test time (real) =   1.00 sec\n' ;;
    *) echo "the output of $2" ;;
esac
exit \$status
EOF
    chmod +x "$1"
}

tree=$folder/tree
mkdir -p "$tree/tools"
for program in cmake ctest clang-tidy-14 gcovr; do
    stub "$folder/programs/$program" "$program"
done
stub "$tree/tools/install-packages" install-packages
export PATH=$folder/programs:$PATH TMPDIR=$folder GIT_CONFIG_GLOBAL=/dev/null
export GIT_AUTHOR_NAME=A GIT_AUTHOR_EMAIL=a@b.test GIT_COMMITTER_NAME=A GIT_COMMITTER_EMAIL=a@b.test
unset CI FAIL MURMELO_TIDY_MAX

result() {
    local mode output part
    # What the last line calls the part of ./test that fails.
    local -A called=(
        ["install-packages"]="install-packages"
        ["check-layers"]="check-layers"
        ["lint --quick"]="lint --quick"
        ["cmake --build --preset release"]="the optimised build"
        ["cmake --build --preset asan"]="the build with the sanitizers"
        ["ctest --preset release -j"]="the tests of the optimised build"
        ["ctest --preset asan"]="the tests with the sanitizers"
        ["start-presets"]="start-presets"
        ["lint --tidy"]="lint --tidy"
        ["build-page"]="the build of the page"
        ["-L browser"]="the tests of the page"
    )
    cp "$source/test" "$tree"
    for tool in check-layers lint start-presets; do
        stub "$tree/tools/$tool" $tool
    done
    stub "$tree/tests/web/build-page.sh" build-page
    for mode in "" all native; do
        rm -f "$folder/calls"
        # shellcheck disable=SC2086  # no mode is no argument
        output=$("$tree/test" $mode 2>&1) || report_error "./test $mode fails although nothing else does: $output"
        [[ $(tail -n 1 <<<"$output") == "Total Test time"* ]] ||
            report_error "./test $mode ends with: $(tail -n 3 <<<"$output")"
        [[ $output != *FAILED* ]] || report_error "./test $mode says that something failed"
        part=--tidy-newest
        [[ $mode != all ]] || part=--tidy
        grep -qx -- "lint $part" "$folder/calls" || report_error "./test $mode does not call lint $part"
        for part in "${!called[@]}"; do
            [[ $mode != all ]] || continue  # it differs only in what it gives to lint
            [[ $mode != native || $part != build-page && $part != "-L browser" ]] || continue
            # shellcheck disable=SC2086
            output=$(FAIL=$part "$tree/test" $mode 2>&1) && report_error "./test $mode succeeds although $part fails"
            [[ $(tail -n 1 <<<"$output") == "== FAILED: ${called[$part]}"* ]] ||
                report_error "./test $mode ends after a failure of $part with: $(tail -n 2 <<<"$output")"
        done
    done
    mapfile -t left < <(find "$folder" -maxdepth 1 -name 'murmelo_*')
    [ ${#left[@]} -eq 0 ] || report_error "these are left: ${left[*]}"
}

# tidied: prints the names that clang-tidy got, sorted, in one line.
tidied() {
    rm -f "$folder/calls"
    (cd "$tree" && tools/lint --tidy-newest) >"$folder/output" 2>&1 || report_error "lint fails: $(cat "$folder/output")"
    sed -n 's/^clang-tidy-14 .* //p' "$folder/calls" | sort | tr '\n' ' '
}

expect_tidied() { # NAMES WHEN
    local got
    got=$(tidied)
    [ "$got" = "$1" ] || report_error "$2, clang-tidy looks at \"$got\" and not at \"$1\""
}

commit() { # FILE TEXT
    mkdir -p "$tree/$(dirname "$1")"
    printf '%s\n' "$2" >>"$tree/$1"
    git -C "$tree" add "$1"
    git -C "$tree" commit -qm "$1"
}

changed() {
    cp "$source"/tools/{lint,help.sh} "$tree/tools/"
    expect_tidied "" "without git"
    grep -q "no history in git" "$folder/output" ||
        report_error "lint does not say that it looked at nothing: $(cat "$folder/output")"
    ! grep -q "Nothing found" "$folder/output" || report_error "without git lint claims to have found nothing"

    git -C "$tree" init -q
    commit src/Old.cpp '#include "Plain.h"'
    expect_tidied "src/Old.cpp " "with one commit"
    commit src/Plain.h "struct Plain;"
    commit src/Deep.h '#include "folder/Plain.h"'
    commit src/Pair.cpp '#include "Pair.h"'
    git -C "$tree" tag v1.0.0
    expect_tidied "" "at a release"
    grep -q "0 sources have changed since v1.0.0" "$folder/output" ||
        report_error "lint does not say since when: $(cat "$folder/output")"
    commit src/Pair.h "struct Pair;"
    expect_tidied "src/Pair.cpp " "with a changed header of a pair"
    commit src/Plain.h "struct Other;"
    expect_tidied "src/Old.cpp src/Pair.cpp " "with a changed header that a source includes"
    commit tests/Deep_test.cpp '#include "Deep.h"'
    git -C "$tree" tag v1.1.0
    commit src/Lonely.h "struct Lonely;"
    commit src/Middle.h '#include "Lonely.h"'
    expect_tidied "" "with a header that no source includes"
    grep -q "no source includes src/Lonely.h" "$folder/output" || report_error "lint drops a header without a word"
    commit tests/Middle_test.cpp '#include "Middle.h"'
    git -C "$tree" tag v1.2.0
    commit src/Lonely.h "struct More;"
    expect_tidied "tests/Middle_test.cpp " "with a header that a source includes by another header"
}

# expect_usage STATUS BEGINNING CALL: the call prints a text that begins so and names the script, and does nothing else.
expect_usage() {
    local output status files
    rm -f "$folder/calls"
    files=$(find "$tree" | sort)
    # shellcheck disable=SC2086  # a program and its argument
    output=$(cd "$tree" && ./$3 2>&1)
    status=$?
    [ $status -eq "$1" ] || report_error "$3: status $status"
    [[ $output == "$2"* && $output == *"$(basename "${3%% *}")"* ]] || report_error "$3 prints: $output"
    [ -n "$2" ] || [ "$(wc -l <<<"$output")" -ge 2 ] || report_error "$3 prints one line only: $output"
    [ ! -e "$folder/calls" ] || report_error "$3 begins with: $(head -n 1 "$folder/calls")"
    [ "$files" = "$(find "$tree" | sort)" ] || report_error "$3 changes files"
}

arguments() {
    local script call
    mkdir "$tree/.ci"
    cp "$source"/{run,test} "$tree"
    cp "$source/.ci/run" "$tree/.ci"
    find "$source/tools" -maxdepth 1 -type f ! -name install-packages -exec cp {} "$tree/tools" \;
    for call in "tools/coverage x" "tools/start-presets x" "test x" ".ci/run x"; do
        expect_usage 2 "usage: " "$call"
    done
    for script in run test .ci/run; do
        expect_usage 0 "usage: " "$script --help"
        expect_usage 0 "usage: " "$script -h"
    done
    export PYTHONDONTWRITEBYTECODE=1
    scripts=$(cd "$source" && find tools -maxdepth 1 -type f -executable ! -name install-packages | sort)
    [ "$(wc -l <<<"$scripts")" -ge 17 ] || report_error "these are not all scripts of tools: $scripts"
    for script in $scripts; do
        expect_usage 0 "" "$script --help"
        expect_usage 0 "" "$script -h"
    done
    cp "$source/tools/install-packages" "$tree/tools"  # in place of the stub
    expect_usage 0 "Installs" "tools/install-packages --help"
    stub "$tree/tools/install-packages" install-packages
    # Without a display, arguments reach the program, which uses or refuses them itself.
    stub "$tree/build/release/murmelo" murmelo
    stub "$tree/tools/demo.sh" demo
    (cd "$tree" && env -u DISPLAY -u WAYLAND_DISPLAY ./run x.wav) >/dev/null 2>&1
    grep -q '^murmelo x.wav$' "$folder/calls" || report_error "run forgets its argument without a display"
    (cd "$tree" && env -u DISPLAY -u WAYLAND_DISPLAY ./run) >/dev/null 2>&1
    grep -q '^demo ' "$folder/calls" || report_error "run shows nothing without a display"
}

case $case in
    result) result ;;
    changed) changed ;;
    arguments) arguments ;;
    *) report_error "there is no case $case" ;;
esac
exit $failed
