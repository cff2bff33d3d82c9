#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks that the Debian package can be made with the packages that ./run installs, satisfies lintian, works when it is
# installed, and leaves nothing when it is purged.
#
#   debian-package.sh BUILD SOURCE VERSION HARDENED     HARDENED: ON if the build folder's programs are hardened, else OFF
build=$(realpath "$1") source=$(realpath "$2") version=$3 hardened=$4
# shellcheck source=tests/packaging/common.sh
. "$(dirname "$0")/common.sh"

mapfile -t packages < <("$source/tools/install-packages" --list build)
[ ${#packages[@]} -ge 10 ] || report_error "the group build has only ${#packages[@]} packages"
"$source/tests/packaging/programs-of.py" "$folder/programs" "${packages[@]}" || report_error "not all of the group build is there"
export DEBFULLNAME="A Packager" DEBEMAIL=packager@murmelo.test
# An old package, which must not stay beside the new one.
mkdir "$folder/packed"
touch "$folder/packed/murmelo_0.0.9-1_all.deb"
# CMake would also look for programs in the system's folders.
if ! (umask 077 && cd "$build" && PATH=$folder/programs cpack -D CMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF \
    --config CPackConfig.cmake -B "$folder/packed") >"$folder/log" 2>&1; then
    report_error "cpack failed: $(cat "$folder/log")"
    exit $failed
fi
deb=$(echo "$folder"/packed/murmelo_*.deb)
[[ $deb == "$folder/packed/murmelo_$version-1_"*.deb && -f $deb ]] ||
    report_error "there are other packages than one of the version: $(ls "$folder/packed")"

# The tool loads these only when a file needs them, so dpkg-shlibdeps does not see them for it.
needs=$(dpkg-deb --field "$deb" Depends)
for package in libsndfile1 libsoxr0; do
    [[ ", $needs," == *", $package"[\ ,]* ]] || report_error "the package does not depend on $package: $needs"
done

# Warnings count as errors.
output=$(lintian --fail-on error,warning "$deb" 2>/dev/null) || report_error "lintian: $output"
[[ $output == *[EW]:* ]] && report_error "lintian: $output"
zcat < <(dpkg-deb --fsys-tarfile "$deb" | tar -xO ./usr/share/doc/murmelo/changelog.Debian.gz) >"$folder/changelog"
expect_maintainer() { # MAINTAINER: in the package and in its changelog
    [ "$(dpkg-deb --field "$deb" Maintainer)" = "$1" ] || report_error "the maintainer is $(dpkg-deb --field "$deb" Maintainer)"
    [ "$(sed -n 's/^ -- \(.*\)  .*/\1/p' "$folder/changelog" | sort -u)" = "$1" ] || report_error "the changelog is not by $1"
}
given=$(sed -n 's/^set(CPACK_MURMELO_MAINTAINER "\(.*\)")$/\1/p' "$build/CPackConfig.cmake")
expect_maintainer "${given:-A Packager <packager@murmelo.test>}"
grep -q "^murmelo (${version%+dev}-1) " <<<"$(head -n 1 "$folder/changelog")" || report_error "the changelog is of another version"
dpkg-deb --fsys-tarfile "$deb" | tar -tv | awk '$2 != "root/root"' | grep . && report_error "not all of that is root's"

# A root folder of its own with what dpkg needs, and a simulated root user.
root=$folder/root
mkdir -p "$root/var/lib/dpkg"/{info,updates,triggers,parts} "$root/usr/share/icons/hicolor" "$root/etc"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available" "$root/usr/share/icons/hicolor/index.theme"
as_root() {
    PATH=/usr/sbin:/sbin:$PATH fakeroot dpkg --root="$root" --force-depends --force-script-chrootless --log=/dev/null \
        "$@" >"$folder/log" 2>&1 || report_error "dpkg $1: $(cat "$folder/log")"
}
everything() { inventory "$root" | grep -v ' \./var/lib/dpkg\|^\./var/lib/dpkg\|^\./var/lib '; }
everything >"$folder/before"
as_root --install "$deb"
[ "$(readlink -f "$root/usr/share/murmelo/icons/murmelo-64.png")" = \
    "$root/usr/share/icons/hicolor/64x64/apps/org.murmelo.Murmelo.png" ] || report_error "the window has no icon"
for program in murmelo murmelo-headless murmelo-fx; do
    "$root/usr/bin/$program" --version | grep -qxF "$program $version" || report_error "$program is of another version"
    [ -f "$root/usr/share/zsh/vendor-completions/_$program" ] || report_error "zsh does not find how to complete $program"
    [ -f "$root/usr/share/bash-completion/completions/$program" ] || report_error "bash does not know how to complete $program"
    [ -f "$root/usr/share/fish/vendor_completions.d/$program.fish" ] ||
        report_error "fish does not know how to complete $program"
    [ -f "$root/usr/share/man/man1/$program.1.gz" ] || report_error "$program has no man page"
    [ "$hardened" = ON ] && { "$(dirname "$0")/hardening.sh" "$root/usr/bin/$program" || failed=1; }
done
for folder_of_language in "$source"/docs/man/*/; do
    language=$(basename "$folder_of_language")
    for program in murmelo murmelo-fx; do
        [ -f "$root/usr/share/man/$language/man1/$program.1.gz" ] || report_error "$program has no man page in $language"
    done
done
journey "$root/usr"
expect_robot "$root/usr" "$folder/elsewhere/heard.wav"
as_root --purge murmelo
everything >"$folder/after"
diff "$folder/before" "$folder/after" || report_error "something is left of the package"
[ -f "$folder/user/.local/share/murmelo/Murmelo/rec_00000.wav" ] || report_error "the user's sound is gone"
exit $failed
