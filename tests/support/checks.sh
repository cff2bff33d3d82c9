# SPDX-License-Identifier: MIT
# Read by scripts of tests: makes a folder of their own, which is removed at their end, and counts errors.
# shellcheck shell=bash disable=SC2034  # the scripts that read it look at "failed"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failed=0

report_error() {
    echo "$1" >&2
    failed=1
}
