#!/bin/bash
# The example of docs/headless.md runs as it stands:  headless-example.sh PROGRAM SOURCE
set -eu
program=$(realpath "$1") source=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
ln -s "$source/res" res
mkdir build
sed -n 's/^    //p' "$source/docs/headless.md" >script
[ "$(wc -l <script)" -gt 10 ]
"$program" --home build/home --config build/config script
[ "$(stat -c %s build/robot.wav)" -gt 44 ]
