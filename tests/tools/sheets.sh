#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the fonts that the font maker writes, and the sheets that the gallery writes.
#
#   sheets.sh CASE PROGRAM SOURCE [FONT]
set -u
program=$(realpath "$2") source=$(realpath "$3")
# shellcheck source=tests/support/checks.sh
. "$(dirname "$0")/../support/checks.sh"
cd "$folder" || exit 1

# size PICTURE: checks that the picture is complete, and prints its width and height.
size() {
    pngcheck -q "$1" >&2 || report_error "$1 is no whole picture"
    identify -format '%w %h' "$1"
}

# refuses MESSAGE ARGUMENT...: the program ends with status 1, and says that and nothing else.
refuses() {
    local output status message=$1
    shift
    output=$("$program" "$@" 2>&1)
    status=$?
    [ $status -eq 1 ] || report_error "the status is $status"
    [ "$output" = "$message" ] || report_error "it says \"$output\" and not \"$message\""
}

case $1 in
refuses-no-font)
    refuses "murmelo-bmfgen: $source/README.md is not a font that can be read" "$source/README.md" 15 no.bmf
    [ ! -e no.bmf ] || report_error "it has written a font"
    ;;
cannot-write)
    refuses "murmelo-gallery: cannot write $source/README.md/no.png" "$source/README.md/no.png"
    ;;
makes-a-font)
    font=$4
    if ! "$program" "$font" 15 small.bmf || ! "$program" "$font" 15 again.bmf ||
        ! "$program" --name Other "$font" 30 large.bmf; then
        report_error "no font was made"
    fi
    cmp small.bmf again.bmf || report_error "the same font is another one the second time"
    for file in small.bmf large.bmf; do
        [ "$(head -c 3 $file)" = BMF ] || report_error "$file is no bitmap font"
    done
    [ "$(stat -c %s large.bmf)" -gt "$(stat -c %s small.bmf)" ] || report_error "letters of 30 pixels take no more than of 15"
    grep -q 'DejaVu Sans' small.bmf || report_error "the font has not the name of its family"
    grep -q Other large.bmf || report_error "the font has not the name that was given"
    ;;
shows-everything)
    if ! "$program" all.png || ! "$program" --scale 2 twice.png ||
        ! "$program" --data "$source/tests/tools" empty.png; then
        report_error "no sheet was written"
    fi
    read -r width height < <(size all.png)
    read -r twice_width twice_height < <(size twice.png)
    read -r empty_width empty_height < <(size empty.png)
    [ "$twice_width $twice_height" = "$((2 * width)) $((2 * height))" ] ||
        report_error "twice as large is $twice_width x $twice_height"
    [ "$empty_width" = "$width" ] || report_error "a sheet without pictures is $empty_width wide, not $width"
    # Each picture needs room: those of the screens alone are 800 pixels high.
    [ "$height" -gt "$((empty_height + 800))" ] ||
        report_error "with all pictures the sheet is $height high, without $empty_height"
    [ "$(identify -format %k all.png)" -gt 1000 ] || report_error "the sheet has hardly any colours"
    ;;
*) report_error "there is no case \"$1\"" ;;
esac
exit $failed
