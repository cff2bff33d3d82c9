#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares, pixel for pixel, the fatal messages that no journey can cause, a row for each language:
#   messages.sh SCREEN-MESSAGES SHEET GOLDEN.png
# If they differ, GOLDEN_actual.png is written beside it, to look at. With UPDATE=1 the golden is written.
set -eu
export MURMELO_CHECK_FRAMES=1
messages=$1 sheet=$2 golden=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$messages" "$folder"
cd "$folder"
pictures=()
for language in 0 1 2 3 4; do
    for kind in 1 5 7; do pictures+=("${kind}_$language.png"); done
done
if [ -n "${UPDATE:-}" ]; then
    "$sheet" --columns 3 "$golden" "${pictures[@]}"
else
    "$sheet" --columns 3 --compare "$golden" "${golden%.png}_actual.png" "${pictures[@]}"
fi
