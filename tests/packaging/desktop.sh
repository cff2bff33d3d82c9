#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks that the desktop entry and the metainfo are valid and true, and have every language of the program.
#
#   desktop.sh BUILD SOURCE VERSION LANGUAGE...
build=$(realpath "$1") source=$(realpath "$2") version=$3 languages=("${@:4}")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"

stage "$build" "$folder/stage" /usr
share=$folder/stage/usr/share
entry=$share/applications/org.murmelo.Murmelo.desktop
metainfo=$share/metainfo/org.murmelo.Murmelo.metainfo.xml

warnings=$(desktop-file-validate "$entry" 2>&1) || complain "desktop-file-validate: $warnings"
[ -z "$warnings" ] || complain "desktop-file-validate: $warnings"
appstreamcli validate --no-net "$metainfo" >"$folder/said" 2>&1 || complain "appstreamcli: $(cat "$folder/said")"
# Its exit status is 0 also for warnings and informations.
grep -E '^[EWI]:' "$folder/said" && complain "appstreamcli: $(cat "$folder/said")"
appstreamcli validate-tree --no-net "$folder/stage" >"$folder/said" 2>&1 || complain "in its tree: $(cat "$folder/said")"

value() { sed -n "s/^$1=//p" "$entry"; }
for key in Name GenericName Comment Keywords; do
    [ -n "$(value $key)" ] || complain "the desktop entry has no English $key"
    for language in "${languages[@]:1}"; do
        [ -n "$(value "$key\[$language\]")" ] || complain "the desktop entry has no $key in $language"
    done
done
words=$(value Exec)
[ -x "$folder/stage/usr/bin/${words%% *}" ] || complain "the desktop entry starts \"$words\""
[ -f "$share/icons/hicolor/48x48/apps/$(value Icon).png" ] || complain "there is no icon \"$(value Icon)\""
for type in audio/x-wav audio/flac audio/ogg; do
    [[ ";$(value MimeType)" == *";$type;"* ]] || complain "the desktop entry does not offer to open $type"
done

python3 "$source/tests/packaging/metainfo.py" "$metainfo" "$version" "$(basename "$entry")" "$(value MimeType)" "${languages[@]}" || wrong=1
binaries=$(python3 -c 'import sys, xml.etree.ElementTree as tree
print(*[one.text for one in tree.parse(sys.argv[1]).iter("binary")])' "$metainfo")
[ -n "$binaries" ] || complain "the metainfo promises no program"
for program in $binaries; do
    [ -x "$folder/stage/usr/bin/$program" ] || complain "the metainfo promises $program"
done
[ "$("$folder/stage/usr/bin/murmelo" --version)" = "murmelo $version" ] || complain "the program has another version"
exit $wrong
