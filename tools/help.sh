# SPDX-License-Identifier: MIT
# shellcheck shell=sh
# Read by the scripts here: with -h or --help, prints the comment at the script's beginning, and ends.
case "${1:-}" in
    -h | --help)
        sed -n '3,/^[^#]/s/^# \{0,1\}//p' "$0" | grep -v '^shellcheck '
        exit 0
        ;;
esac
