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

warnings=$(desktop-file-validate "$entry" 2>&1) || report_error "desktop-file-validate: $warnings"
[ -z "$warnings" ] || report_error "desktop-file-validate: $warnings"
appstreamcli validate --no-net "$metainfo" >"$folder/output" 2>&1 || report_error "appstreamcli: $(cat "$folder/output")"
# Its exit status is 0 also for warnings and informations.
grep -E '^[EWI]:' "$folder/output" && report_error "appstreamcli: $(cat "$folder/output")"
appstreamcli validate-tree --no-net "$folder/stage" >"$folder/output" 2>&1 ||
    report_error "in its tree: $(cat "$folder/output")"

value() { sed -n "s/^$1=//p" "$entry"; }
for key in Name GenericName Comment Keywords; do
    [ -n "$(value $key)" ] || report_error "the desktop entry has no English $key"
    for language in "${languages[@]:1}"; do
        [ -n "$(value "$key\[$language\]")" ] || report_error "the desktop entry has no $key in $language"
    done
done
words=$(value Exec)
[ -x "$folder/stage/usr/bin/${words%% *}" ] || report_error "the desktop entry starts \"$words\""
[ -f "$share/icons/hicolor/48x48/apps/$(value Icon).png" ] || report_error "there is no icon \"$(value Icon)\""
for type in audio/x-wav audio/flac audio/ogg; do
    [[ ";$(value MimeType)" == *";$type;"* ]] || report_error "the desktop entry does not offer to open $type"
done

python3 "$source/tests/packaging/metainfo.py" "$metainfo" "${version%+dev}" "$(basename "$entry")" "$(value MimeType)" "${languages[@]}" || failed=1
binaries=$(python3 -c 'import sys, xml.etree.ElementTree as tree
print(*[one.text for one in tree.parse(sys.argv[1]).iter("binary")])' "$metainfo")
[ -n "$binaries" ] || report_error "the metainfo promises no program"
for program in $binaries; do
    [ -x "$folder/stage/usr/bin/$program" ] || report_error "the metainfo promises $program"
done
[ "$("$folder/stage/usr/bin/murmelo" --version)" = "murmelo $version" ] || report_error "the program has another version"
exit $failed
