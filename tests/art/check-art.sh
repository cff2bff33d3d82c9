#!/bin/sh
# SPDX-License-Identifier: MIT
# Checks that the committed pictures match their SVG sources. Exit status 0: yes, 1: no, 77: the tools are missing, or
# the renderer is not the version that the pictures were made with (others differ in the last bits).
set -u
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT

if ! command -v rsvg-convert >/dev/null; then
    echo "check-art: no rsvg-convert" >&2
    exit 77
fi
if [ "$(rsvg-convert --version)" != "$(cat "$root/art/renderer.txt")" ]; then
    echo "check-art: the pictures were made with another renderer: $(cat "$root/art/renderer.txt")" >&2
    exit 77
fi
"$root/art/render.sh" "$made/Res" "$made/icons" "$made/strip"
status=$?
[ $status -eq 0 ] || exit $status

python=python3
"$python" -c 'import PIL' 2>/dev/null || python=/usr/bin/python3
"$python" "$here/compare.py" "$made/Res" "$root/res/Res" || exit 1
"$python" "$here/compare.py" "$made/icons" "$root/res/icons" || exit 1
"$python" "$here/compare.py" "$made/strip" "$root/res/Res/strip" || exit 1
"$python" "$here/rules.py" "$root/res/Res" "$root/res/Res/strip" || exit 1
"$python" "$here/faces.py" || exit 1
