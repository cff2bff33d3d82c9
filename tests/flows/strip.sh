#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares the strip in each of its states in one language, pixel for pixel, with the committed sheet:
#   strip.sh STRIP-STATES SHEET LANGUAGE GOLDEN.png
# The sheets over the picture are in GOLDEN-over.png. If they differ, GOLDEN_actual.png is written beside it, to
# look at. With UPDATE=1 the goldens are written.
set -eu
states=$1 sheet=$2 language=$3 golden=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$states" "$folder" "$language"
cd "$folder"
strip=()
over=()
for picture in *.png; do
    case $picture in
        over-*) over+=("$picture") ;;
        *) strip+=("$picture") ;;
    esac
done

# COLUMNS GOLDEN PICTURE...
compare() {
    if [ -n "${UPDATE:-}" ]; then
        "$sheet" --columns "$1" "$2" "${@:3}"
    else
        "$sheet" --columns "$1" --compare "$2" "${2%.png}_actual.png" "${@:3}"
    fi
}

compare 3 "$golden" "${strip[@]}"
compare 3 "${golden%.png}-over.png" "${over[@]}"
