#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks that the sources are compiled with all flags of Debian's hardening=+all, and with those of CPPFLAGS and LDFLAGS
# from the environment.
#
#   build-flags.sh BUILD SOURCE
build=$(realpath "$1") source=$(realpath "$2")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"
unset DEB_BUILD_OPTIONS DEB_BUILD_MAINT_OPTIONS CPPFLAGS CXXFLAGS CFLAGS LDFLAGS

# without FLAG FOLDER: lists the sources below src that are not compiled with this flag in this build folder.
without() {
    python3 - "$1" "$2/compile_commands.json" "$source/src/" <<'END_PYTHON'
import json, shlex, sys
flag, commands, below = sys.argv[1:]
ours = [c for c in json.load(open(commands)) if c["file"].startswith(below)]
if len(ours) < 100:
    print("only %d sources" % len(ours))
for command in ours:
    if flag not in shlex.split(command["command"]):
        print(command["file"])
END_PYTHON
}

flags() { # HARDENING
    for kind in CPPFLAGS CXXFLAGS; do
        DEB_BUILD_MAINT_OPTIONS=hardening=$1 dpkg-buildflags --get $kind | tr ' ' '\n'
    done | sort -u
}
hardening=$(comm -23 <(flags +all) <(flags -all))
grep -q FORTIFY <<<"$hardening" || report_error "these are no flags for hardening: $hardening"
for flag in $hardening; do
    missing=$(without "$flag" "$build")
    [ -z "$missing" ] || report_error "not compiled with $flag: $missing"
done

# A builder of packages may ask for a higher level than ours, which must not be lowered.
LDFLAGS=-Wl,--defsym=murmelo_from_outside=1 \
    CPPFLAGS='-DMURMELO_FROM_OUTSIDE=1 -D_FORTIFY_SOURCE=3' cmake -S "$source" -B "$folder/configured" -G Ninja \
    -DCMAKE_BUILD_TYPE=Release -DMURMELO_TESTS=OFF -DMURMELO_TOOLS=OFF >"$folder/log" 2>&1 ||
    report_error "configuring failed: $(cat "$folder/log")"
for flag in -DMURMELO_FROM_OUTSIDE=1 -D_FORTIFY_SOURCE=3; do
    missing=$(without "$flag" "$folder/configured")
    [ -z "$missing" ] || report_error "CPPFLAGS has $flag, but it is missing for: $missing"
done
grep -q -- '-D_FORTIFY_SOURCE=2' "$folder/configured/compile_commands.json" && report_error "level 3 was lowered to 2"

# unlinked FLAG FOLDER: lists the programs of this build folder that are not linked with this flag.
unlinked() {
    local program
    for program in murmelo murmelo-headless murmelo-fx; do
        ninja -C "$2" -t commands -s "$program" | grep -qF -- " $1 " || echo "$program"
    done
}
missing=$(unlinked -Wl,--defsym=murmelo_from_outside=1 "$folder/configured")
[ -z "$missing" ] || report_error "LDFLAGS do not reach the link of: $missing"
exit $failed
