#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks that the installed programs work, from any folder and after a move, and are removed without a trace.
#
#   installation.sh CASE BUILD SOURCE
build=$(realpath "$2") source=$(realpath "$3")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"

case $1 in
journey-from-staging-folder)
    stage "$build" "$folder/stage" /usr
    prefix=$folder/stage/usr
    journey "$prefix"
    expect_robot "$prefix" "$folder/elsewhere/heard.wav"
    expect_robot "$prefix" "$folder/user/.local/share/murmelo/Murmelo/rec_00000.wav"
    expect_same_pictures
    for part in Res framework; do
        diff -r "$source/res/$part" "$prefix/share/murmelo/$part" || report_error "$part is not all there"
    done
    # Checks that these are the pictures used: without them the program must fail.
    mv "$prefix/share/murmelo" "$folder/away"
    (cd "$folder/elsewhere" && "$prefix/bin/murmelo-headless" --home home --config config robot.txt) 2>"$folder/err" &&
        report_error "there are pictures without pictures"
    grep -q 'the folder with the pictures, "Res", is missing' "$folder/err" || report_error "$(cat "$folder/err")"
    ;;
effects-from-staging-folder)
    stage "$build" "$folder/stage" /usr
    bin=$folder/stage/usr/bin
    mkdir "$folder/elsewhere"
    cd "$folder/elsewhere" || exit 1
    for effect in $("$bin/murmelo-fx" --list | cut -d ' ' -f 1); do
        "$bin/murmelo-fx" "$effect" "$source/res/sample/hello.wav" "$effect.wav" || report_error "$effect failed"
    done
    [ "$(find . -name '*.wav' -size +10k | wc -l)" = 8 ] || report_error "these are no eight sounds: $(ls -l)"
    expect_robot "$folder/stage/usr" robot.wav
    ;;
readable-by-everybody)
    stage "$build" "$folder/stage" /usr
    [ "$(find "$folder/stage" -type f | wc -l)" -gt 50 ] || report_error "too little is installed"
    secret=$(find "$folder/stage" ! -perm -go=r -o -type d ! -perm 755 -o -type f -perm /go=w)
    [ -z "$secret" ] || report_error "these are not for everybody, or too much so: $secret"
    ;;
moved-tree)
    stage "$build" "" "$folder/first"
    mkdir -p "$folder/a folder"
    mv "$folder/first" "$folder/a folder/second"
    journey "$folder/a folder/second"
    # A link to a program, as users have them in a folder of their own.
    mkdir "$folder/links"
    ln -s "$folder/a folder/second/bin/murmelo-headless" "$folder/links/mh"
    (cd "$folder/elsewhere" && "$folder/links/mh" --home home --config config robot.txt) || report_error "not by its link"
    ;;
every-file-a-link)
    # Installed as a tree of links: each file is elsewhere under another name, and a link to a link leads there.
    stage "$build" "$folder/stage" /usr
    prefix=$folder/stage/usr
    mkdir "$folder/store" "$folder/between"
    number=0
    while read -r file; do
        number=$((number + 1))
        mv "$file" "$folder/store/$number"
        ln -s "../store/$number" "$folder/between/$number"
        ln -s "$folder/between/$number" "$file"
    done < <(find "$prefix" -type f)
    [ "$number" -gt 50 ] || report_error "too little is installed"
    journey "$prefix"
    expect_same_pictures
    expect_robot "$prefix" "$folder/elsewhere/heard.wav"
    ;;
folders-that-are-links)
    stage "$build" "$folder/stage" /usr
    prefix=$folder/stage/usr
    mkdir "$folder/store"
    for name in Res framework; do
        mv "$prefix/share/murmelo/$name" "$folder/store/$name.1"
        ln -s "$name.1" "$folder/store/$name"
        ln -s "$folder/store/$name" "$prefix/share/murmelo/$name"
    done
    # A folder further down as well.
    mv "$folder/store/framework.1/image" "$folder/store/image"
    ln -s "$folder/store/image" "$folder/store/framework.1/image"
    journey "$prefix"
    expect_same_pictures
    ;;
window-program)
    stage "$build" "$folder/stage" /usr
    prefix=$folder/stage/usr
    [ "$("$prefix/bin/murmelo" --version)" = "$("$build/murmelo" --version)" ] || report_error "--version"
    "$prefix/bin/murmelo" --help | grep -q -- --microphone || report_error "--help"
    "$prefix/bin/murmelo" --nonsense >"$folder/out" 2>"$folder/err"
    [ $? = 2 ] || report_error "a mistake on the command line has another status than 2"
    grep -q -- --nonsense "$folder/err" || report_error "the mistake is not named: $(cat "$folder/err")"
    "$prefix/bin/murmelo" --home "$folder/home" "$folder/nothing.wav" >"$folder/out" 2>"$folder/err"
    [ $? = 1 ] || report_error "a missing sound has another status than 1"
    # The icon of its window is where the program looks for it, and is a link, not a second copy.
    icon=$prefix/share/murmelo/icons/murmelo-64.png
    [ -L "$icon" ] || report_error "$icon is no link"
    cmp "$icon" "$source/res/icons/murmelo-64.png" || report_error "$icon is no icon"
    ;;
icons)
    stage "$build" "$folder/stage" /usr
    hicolor=$folder/stage/usr/share/icons/hicolor
    for icon in "$source"/res/icons/murmelo-*.png; do
        size=${icon##*-} size=${size%.png}
        [ "$(identify -format '%wx%h' "$hicolor/${size}x$size/apps/org.murmelo.Murmelo.png")" = "${size}x$size" ] ||
            report_error "no icon of $size pixels"
    done
    [ "$(find "$hicolor" -mindepth 1 -maxdepth 1 | wc -l)" = 10 ] ||
        report_error "there should be eight sizes, a scalable and a symbolic one: $(ls "$hicolor")"
    symbolic=$hicolor/symbolic/apps/org.murmelo.Murmelo-symbolic.svg
    rsvg-convert "$symbolic" -o "$folder/symbolic.png" || report_error "the symbolic icon cannot be drawn"
    # Desktops replace exactly this colour, and expect a picture of 16 pixels.
    [ "$(grep -o '#[0-9a-f]*' "$symbolic" | sort -u)" = "#2e3436" ] || report_error "the symbolic icon has another colour"
    [ "$(identify -format '%w %h' "$folder/symbolic.png")" = "16 16" ] || report_error "the symbolic icon has another size"
    rsvg-convert -w 64 "$hicolor/scalable/apps/org.murmelo.Murmelo.svg" -o "$folder/scalable.png" ||
        report_error "the scalable icon cannot be drawn"
    # Drawn at one of the sizes, it is the same picture, except for the dither of that one.
    difference=$(compare -metric MAE "$folder/scalable.png" "$hicolor/64x64/apps/org.murmelo.Murmelo.png" null: 2>&1 |
        sed 's/.*(\(.*\))/\1/')
    awk "BEGIN { exit !($difference < 0.02) }" || report_error "the scalable icon is another picture: $difference"
    ;;
licences)
    stage "$build" "$folder/stage" /usr
    papers=$folder/stage/usr/share/doc/murmelo
    grep -q 'Copyright 2013 Intel' "$papers/licences/clear-sans.txt" || report_error "the fonts have no notice"
    grep -q 'END OF TERMS AND CONDITIONS' "$papers/licences/clear-sans.txt" || report_error "the fonts' terms are not whole"
    grep -q 'Redistributions in binary form' "$papers/licences/cli11.txt" || report_error "CLI11 has no notice"
    # Every installed font is named.
    find "$folder/stage/usr/share/murmelo" -name '*.bmf' -printf '%P\n' >"$folder/fonts"
    [ "$(wc -l <"$folder/fonts")" = 3 ] || report_error "there should be three fonts: $(cat "$folder/fonts")"
    while read -r font; do
        grep -q "res/$font" "$papers/copyright" || report_error "whose is $font?"
        grep -q "$font" "$papers/licences/clear-sans.txt" || report_error "$font is made from what?"
    done <"$folder/fonts"
    ;;
uninstalled-without-a-trace)
    # A prefix that other programs use too, with an empty folder that existed before.
    prefix=$folder/prefix
    mkdir -p "$prefix/share/man/man1" "$prefix/share/applications" "$prefix/share/icons/hicolor/64x64/apps" "$prefix/bin"
    echo other | tee "$prefix/bin/other" "$prefix/share/applications/other.desktop" >"$prefix/share/icons/hicolor/icon"
    inventory "$prefix" >"$folder/before"
    stage "$build" "" "$prefix"
    stage "$build" "" "$prefix" # again, as for a newer version
    journey "$prefix"
    unstage ""
    inventory "$prefix" >"$folder/after"
    diff "$folder/before" "$folder/after" || report_error "the prefix is not as it was"
    # The user's files stay: the sound, and the language.
    (cd "$folder/user" && find . -type f | sort) >"$folder/kept"
    printf '%s\n' ./.config/murmelo/settings ./.local/share/murmelo/Murmelo/rec_00000.wav |
        diff - "$folder/kept" || report_error "the user keeps something else"
    ;;
uninstalled-from-staging-folder)
    stage "$build" "$folder/stage" /opt/murmelo
    [ -x "$folder/stage/opt/murmelo/bin/murmelo" ] || report_error "nothing was installed"
    unstage "$folder/stage"
    [ -z "$(ls -A "$folder/stage" 2>/dev/null)" ] || report_error "left: $(find "$folder/stage")"
    DESTDIR=$folder/stage cmake -DBUILD_DIR="$folder" -P "$source/cmake/Uninstall.cmake" 2>"$folder/err" &&
        report_error "what is not there was uninstalled"
    grep -q 'Nothing was installed from here' "$folder/err" || report_error "$(cat "$folder/err")"
    ;;
*) report_error "there is no case \"$1\"" ;;
esac
exit $failed
