#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks who becomes the maintainer of a Debian package, and that no file of the project invents a mail address.
#
#   maintainer.sh SOURCE
source=$(realpath "$1")
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"

# expect TEXT [NAME=VALUE...]: what Maintainer.cmake says in an environment with these variables.
expect() {
    local output
    output=$(cd "$folder" && env -i HOME="$folder/home" PATH="$PATH" GIT_CEILING_DIRECTORIES=/ GIT_DIR="$folder/none" "${@:2}" \
        cmake -DCPACK_MURMELO_MAINTAINER="${GIVEN:-}" -P "$source/cmake/Maintainer.cmake" 2>&1)
    [[ $(tr -s ' \n' ' ' <<<"$output") == *"$1"* ]] || report_error "with ${*:2} ${GIVEN:-}: $output, and not: $1"
}
mkdir "$folder/home"
expect "maintainer is $(id -un) <$(id -un)@"
expect "maintainer is A B <a@b.test>" DEBFULLNAME="A B" DEBEMAIL=a@b.test
printf '[user]\n\tname = C D\n\temail = c@d.test\n' >"$folder/home/.gitconfig"
expect "maintainer is C D <c@d.test>"
expect "maintainer is A B <c@d.test>" DEBFULLNAME="A B"
expect "maintainer is G H <g@h.test>" DEBEMAIL="G H <g@h.test>"
expect "maintainer is A B <g@h.test>" DEBFULLNAME="A B" DEBEMAIL="G H <g@h.test>"
expect "maintainer is C D <g@h.test>" DEBEMAIL="<g@h.test>"
GIVEN="E F <e@f.test>" expect "maintainer is E F <e@f.test>" DEBFULLNAME="A B" DEBEMAIL=a@b.test
for mistake in "E F" "e@f.test" "E F <e>" "<e@f.test>"; do
    GIVEN=$mistake expect "\"$mistake\" does not name the package's maintainer"
done
# Older trees have such an address in their cache.
for address in e@example.org e@mail.example.com e@nowhere.invalid; do
    GIVEN="E F <$address>" expect "The mail address of \"E F <$address>\" is an example. Configure again with -DMURMELO_MAINTAINER"
    expect "The mail address of" DEBFULLNAME="A B" DEBEMAIL="$address"
done
GIVEN="E F <e@anexample.org>" expect "maintainer is E F <e@anexample.org>"

grep -rnE '@[a-z.-]*(example\.(org|com|net)|\.invalid)' "$source"/{cmake,docs,packaging,res,src,web} "$source"/*.md &&
    report_error "these addresses are invented"
exit $failed
