#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Shows what the effects do to a recording:  demo.sh MURMELO_FX SAMPLE OUTDIR
# Prints a line for each effect, with length, level (RMS) and estimated pitch before and after. Leaves the results in
# OUTDIR.
set -eu
# shellcheck source=tools/help.sh
. "$(dirname "$0")/help.sh"
[ $# -eq 3 ] || { echo "usage: $0 MURMELO_FX SAMPLE OUTDIR" >&2; exit 2; }
fx=$1 sample=$2 folder=$3

measure() {  # FILE: sets seconds, level and pitch
    local line pattern='([0-9.]+) s, peak [^ ]+ dBFS, RMS ([^ ]+) dBFS, (pitch )?([0-9.]+)?'
    line=$("$fx" --measure "$1")
    [[ $line =~ $pattern ]] || return 1
    seconds=${BASH_REMATCH[1]} level=${BASH_REMATCH[2]} pitch=${BASH_REMATCH[4]:--}
}

mkdir -p "$folder"
measure "$sample"
before=("$seconds" "$level" "$pitch")
printf '%-10s %21s %23s %19s   %s\n' effect "length, s" "level, dBFS" "pitch, Hz" file
while read -r effect _; do
    "$fx" "$effect" "$sample" "$folder/$effect.wav"
    measure "$folder/$effect.wav"
    printf '%-10s %9s -> %8s %10s -> %9s %8s -> %7s   %s\n' "$effect" "${before[0]}" "$seconds" \
        "${before[1]}" "$level" "${before[2]}" "$pitch" "$folder/$effect.wav"
done < <("$fx" --list)
