#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares every screen in one language, pixel for pixel, with the committed sheet:
#   screens.sh HEADLESS SHEET VOICE.wav LANGUAGE-INDEX GOLDEN.png
# If they differ, GOLDEN_actual.png is written beside it, to look at. With UPDATE=1 the golden itself is written.
set -eu
export MURMELO_CHECK_FRAMES=1
headless=$1 sheet=$2 voice=$3 lang=$4 golden=$5
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# A later start in this language, with the rest of the script on standard input.
run() {
    rm -rf "${folder:?}/home" "$folder/config"
    mkdir -p "$folder/config"
    echo "lang=$lang" >"$folder/config/settings"
    "$headless" --home "$folder/home" --config "$folder/config" "$@" -
}

rm -rf "${folder:?}/home" "$folder/config"
row=$((306 + 62 * lang))  # of the language list, on the display
# English has the focus already, and a touch on the focused entry would choose it.
"$headless" --home "$folder/home" --config "$folder/config" - <<END
$([ "$lang" = 0 ] || echo "tap 240 $row")
shot-canvas $folder/first.png
END

run <<END
until Splash
shot-canvas $folder/splash.png
until Options
shot-canvas $folder/options.png
tap 240 616
shot-canvas $folder/help.png
key middle
tap 240 678
shot-canvas $folder/language.png
key right
tap 240 554
until Record
shot-canvas $folder/record.png
mic $voice
key middle
wait 2507
shot-canvas $folder/recording.png
watch Process $folder/process.png
key middle
until Play
shot-canvas $folder/play.png
swipe left
wait 1000
shot-canvas $folder/robot.png
$(for effect in backwards high low fast drunk flip; do
    echo "swipe left
wait 1000
shot-canvas $folder/$effect.png"
done)
watch Process $folder/working.png
key middle
until Playing
wait 507
shot-canvas $folder/playing.png
until Play
swipe right
wait 1000
watch Process $folder/saving.png
save
until Save
shot-canvas $folder/save.png
END

run --silent <<END
until Options
shot-canvas $folder/asking-below.png
shot $folder/asking-display.png
END
# The question is painted over the picture, not into it: only a picture of the display shows it.
"$sheet" --halve --top 160 "$folder/asking.png" "$folder/asking-display.png"

run <<END
storage 1024 1024
until MessageAndQuit
shot-canvas $folder/storage.png
END
run <<END
storage -1 -1
until MessageAndQuit
shot-canvas $folder/unsupported.png
END
run <<END
until Options
fail AudioIn.Prepare 1
tap 240 554
until MessageAndQuit
shot-canvas $folder/audio.png
END
run <<END
until Options
mic $voice
tap 240 554
key middle
wait 1000
key middle
until Play
key left
until Options
fail File.Remove 1
tap 240 554
until MessageAndQuit
shot-canvas $folder/file.png
END

run <<END
until Options
tap 240 554
mic $voice
key middle
wait 1000
remove MrmLastRec.wav
key middle
until MessageAndQuit
shot-canvas $folder/gone.png
END

cd "$folder"
names=(first splash options help language record recording process play robot backwards high low fast drunk flip
    working playing saving save asking storage unsupported audio file gone)
if [ -n "${UPDATE:-}" ]; then
    "$sheet" --columns 6 "$golden" "${names[@]/%/.png}"
else
    "$sheet" --columns 6 --compare "$golden" "${golden%.png}_actual.png" "${names[@]/%/.png}"
fi
