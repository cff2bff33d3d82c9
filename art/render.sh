#!/bin/sh
# SPDX-License-Identifier: MIT
# Rasterises the pictures: render.sh [RES_DIR [ICON_DIR [STRIP_DIR]]]   (default: ../res/Res, ../res/icons, ../res/Res/strip)
# Needs rsvg-convert (librsvg2-bin) and Pillow (python3-pil). Exit status 77: one of them is missing.
set -eu
here=$(cd "$(dirname "$0")" && pwd)

python=
for candidate in python3 /usr/bin/python3; do
    if "$candidate" -c 'import PIL' 2>/dev/null; then
        python=$candidate
        break
    fi
done
if [ -z "$python" ] || ! command -v rsvg-convert >/dev/null; then
    echo "render.sh: needs rsvg-convert (librsvg2-bin) and Pillow (python3-pil)" >&2
    exit 77
fi
exec "$python" "$here/render.py" "${1:-$here/../res/Res}" "${2:-$here/../res/icons}" "${3:-$here/../res/Res/strip}"
