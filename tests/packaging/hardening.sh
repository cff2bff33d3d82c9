#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the hardening of a program by its own headers: it is loaded at another address each time, its table of library
# functions is read-only before it begins, its stack cannot be executed, and overwritten stacks or buffers end it.
#
#   hardening.sh PROGRAM
set -u
program=$1 failed=0

report_error() {
    echo "$program: $1" >&2
    failed=1
}

header=$(LC_ALL=C readelf --wide --file-header "$program") || exit 1
segments=$(LC_ALL=C readelf --wide --program-headers "$program") || exit 1
dynamic=$(LC_ALL=C readelf --wide --dynamic "$program") || exit 1
imports=$(LC_ALL=C readelf --wide --dyn-syms "$program" | awk '$7 == "UND" { sub(/@.*/, "", $8); print $8 }')

grep -qE '^ *Type: *DYN' <<<"$header" || report_error "it is always loaded at the same address (no PIE)"
grep -qE '\(FLAGS_1\).*\<PIE\>' <<<"$dynamic" || report_error "it is not marked as a program for any address (no PIE)"
grep -qE '^ *GNU_RELRO ' <<<"$segments" || report_error "its tables stay writable (no GNU_RELRO)"
grep -qE '\(FLAGS_1\).*\<NOW\>' <<<"$dynamic" || report_error "functions are looked up while it runs (no BIND_NOW)"
grep -qE '^ *GNU_STACK .* RW  *0x' <<<"$segments" || report_error "its stack may hold code, or says nothing of that"
grep -qE '^ *LOAD .* RWE ' <<<"$segments" && report_error "a segment can be both written and executed"
grep -qxF __stack_chk_fail <<<"$imports" || report_error "no function checks its stack (no -fstack-protector-strong)"
grep -qE '^__[a-z0-9_]+_chk$' <<<"$imports" || report_error "no library call checks its buffer (no _FORTIFY_SOURCE)"
exit $failed
