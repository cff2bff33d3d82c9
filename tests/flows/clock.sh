#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# One journey through every screen, with the clock's 32 bits wrapping round at every half second of it: what is seen,
# heard and kept is the same as with a clock that begins at 0.
#
#   clock.sh PROGRAM SOURCE BITS
#
# BITS is 31 (from the largest number to the smallest) or 32 (from -1 to 0).
set -eu
program=$(realpath "$1") source=$(realpath "$2") boundary=$((1 << $3))
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

cat >journey <<END
mic $source/res/sample/hello.wav
speaker speaker.wav
expect screen FirstLang
still 1000
tap 240 368
key middle
expect screen Splash
wait 2999
shot-canvas splash.png
expect screen Splash
until Options 1
still 1000
tap 240 616
still 1000
shot-canvas help.png
key middle
tap 240 678
still 1000
shot-canvas languages.png
key right
tap 240 554
expect screen Record
still 1000
key middle
wait 2500
shot-canvas recording.png
wait 500
expect screen Recording
key middle
until Play
still 1000
swipe left
swipe left
wait 120
shot-canvas sliding.png
wait 380
still 1000
shot-canvas play.png
key middle
until Playing
wait 1000
shot-canvas playing.png
until Play 2100
background
wait 1000
foreground
key middle
expect screen Playing
wait 500
key middle
expect screen Play
save
until Save
still 500
shot-canvas save.png
silent on
background
wait 300
foreground
still 500
shot question.png
key left
expect screen Save
END
cp journey longer
cat >>longer <<END
key middle
expect screen Options
tap 240 554
key middle
wait 19999
expect screen Recording
until Play 1
fail Player.Play 1
key middle
until MessageAndQuit
still 1000
shot-canvas message.png
key middle
expect ended
END

# run JOURNEY NAME MS: a journey with a clock that begins at MS, in a folder of that name.
run() {
    mkdir "$2"
    (cd "$2" && "$program" --home home --config config --clock-start "$3" "../$1")
}

# Every fourth time, and when the clock wraps round in its last half, the journey goes on with a take of twenty seconds.
run journey plain-journey 0
run longer plain-longer 0
failed=0
for ((beforeMs = 0; beforeMs <= 41000; beforeMs += beforeMs < 20000 ? 500 : 3000)); do
    journey=journey
    ((beforeMs < 20000 && beforeMs % 2000 != 0)) || journey=longer
    if ! run $journey wrapped $((boundary - beforeMs)) || ! diff -r "plain-$journey" wrapped; then
        echo "this is a clock that wraps round after $beforeMs ms" >&2
        failed=1
    fi
    rm -r wrapped
done
exit $failed
