#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes the bitmap fonts from their outlines:  make-fonts.sh BMFGEN [RES_DIR]   (default: ../res)
#                                or compares:  make-fonts.sh --check BMFGEN     status 1: they differ
# Exit status 77: the installed outlines or rasteriser are not the versions that the fonts were made with.
#
# Clear Sans Medium was chosen by eye, with every text of the program in five languages, over Lato Medium (narrow strokes
# fade on dark glass), M PLUS 1 Medium (its texts take more rows) and Roboto Condensed (thin and cramped at 11.75 pixels):
# its strokes stay even and bright on dark glass, at the canvas's size and doubled. 13.75 is the largest size at which "Enregistrer" fits its third of the soft-key bar, 11.75
# the largest at which the path of a saved sound stays in one row of the message box.
set -eu
# shellcheck source=tools/help.sh
. "$(dirname "$0")/help.sh"
here=$(cd "$(dirname "$0")" && pwd)
clear_sans=1.00-2                  # fonts-clear-sans, Apache License 2.0 (res/licences)
freetype=2.12.1+dfsg-5+deb12u4     # libfreetype6: other versions may round a pixel differently
outlines=/usr/share/fonts/truetype/clear-sans

check=
if [ "${1:-}" = --check ]; then
    check=yes
    shift
fi
if [ $# = 0 ]; then
    echo "make-fonts.sh: wants the font maker, build/release/tools/murmelo-bmfgen" >&2
    exit 2
fi
bmfgen=$1
res=${2:-$here/../res}

version() {
    dpkg-query -W -f '${Version}' "$1" 2>/dev/null || true
}
if [ "$(version fonts-clear-sans)" != $clear_sans ] || [ "$(version libfreetype6)" != $freetype ]; then
    echo "make-fonts.sh: needs fonts-clear-sans $clear_sans and libfreetype6 $freetype" >&2
    [ -n "$check" ] || [ ! -f "$outlines/ClearSans-Medium.ttf" ] && exit 77
fi

make_font() {  # outlines, pixels per em, file
    if [ -z "$check" ]; then
        "$bmfgen" --hinting light "$outlines/$1" "$2" "$res/$3"
        return
    fi
    made=$(mktemp)
    "$bmfgen" --hinting light "$outlines/$1" "$2" "$made"
    same=yes
    cmp "$made" "$res/$3" || same=
    rm -f "$made"
    [ -n "$same" ]
}

make_font ClearSans-Medium.ttf 13.75 Res/bmf15.bmf
make_font ClearSans-Medium.ttf 11.75 Res/bmf13.bmf
make_font ClearSans-Regular.ttf 11 framework/image/font/default.bmf
