#!/bin/sh
# SPDX-License-Identifier: MIT
# made-pictures.sh SOURCE BUILD: checks that the pictures of the program are what tools/make-pictures makes now. Exit
# status 77: the drawing tools are missing, or the renderer has another version than for the committed drawings.
set -u
source=$1 build=$2
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT

if [ "$(rsvg-convert --version 2>/dev/null)" != "$(cat "$source/art/renderer.txt")" ]; then
    echo "made-pictures: no rsvg-convert, or another one" >&2
    exit 77
fi
names=$("$source/tools/make-pictures" "$build" "$made") || exit $?
[ "$(echo "$names" | wc -l)" -ge 7 ] || { echo "made-pictures: too few: $names" >&2; exit 1; }

python=python3
"$python" -c 'import PIL' 2>/dev/null || python=/usr/bin/python3
status=0
for name in $names; do
    "$python" - "$made/$name" "$source/$name" <<'END' || status=1
import sys
from PIL import Image
try:
    made, kept = (Image.open(path) for path in sys.argv[1:])
    same = made.size == kept.size and made.convert("RGB").tobytes() == kept.convert("RGB").tobytes()
except OSError as error:
    sys.exit("made-pictures: %s" % error)
sys.exit(None if same else "made-pictures: %s is out of date: run tools/make-pictures BUILD" % sys.argv[2])
END
done
exit $status
