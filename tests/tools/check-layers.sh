#!/bin/bash
# The check of layers finds what it is for: each breach alone, in a copy of the sources.
#   check-layers.sh SOURCE
set -u
source=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/copy"
cp -r "$source/src" "$source/tools" "$folder/copy"
cd "$folder/copy" || exit 1
git init -q .

wrong=0
if ! tools/check-layers >"$folder/said"; then
    echo "the sources themselves: $(cat "$folder/said")"
    wrong=1
fi

# finds FILE LINE: with this line at the end of that file there is a breach.
finds() {
    cp "$1" "$folder/kept"
    printf '\n%s\n' "$2" >>"$1"
    if tools/check-layers >"$folder/said" || [ ! -s "$folder/said" ]; then
        echo "not found: $2 in $1"
        wrong=1
    fi
    cp "$folder/kept" "$1"
}

app=src/app/common
finds $app/audio/WavProc.cpp '#include "AppImage.h"'
finds $app/audio/WavProc.h '#include "Orm.h"'
finds $app/painting/PaImage.cpp '#include "SkBar.h"'
finds $app/frame/Orm.cpp '#include "SkBar.h"'
finds src/platform/headless/HeadlessHost.cpp '#include "GameInterface.h"'
finds src/platform/osp/OspIo.cpp '#include "Vector.h"'
finds src/fmk/common/fmk/Vector.cpp '#include "Orm.h"'
finds $app/screens/Play.cpp '#include <SDL.h>'
finds $app/screens/Play.cpp '#include <chrono>'
finds $app/screens/Play.cpp 'static const char* home = std::getenv("HOME");  // where else'
finds $app/screens/Play.cpp 'const auto now = time(nullptr);'
finds src/fmk/common/fmk/Vector.cpp 'void end() { ::exit(1); }'
finds src/fmk/common/fmk/Vector.cpp '#include <zlib.h>'
exit $wrong
