#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""versions.py SOURCE VERSION PROGRAM...: the changelog, the Debian changelog and the metainfo have the project's version.

All three must have the same versions with the same dates, newest first; the first is VERSION (CMakeLists.txt).
The changelog has the form of Keep a Changelog. Each PROGRAM shows VERSION, and "+dev" after it if the changelog lists
changes that are not released.
"""
import email.utils
import os
import re
import subprocess
import sys
import pathlib
import xml.etree.ElementTree as tree

KINDS = ["Added", "Changed", "Deprecated", "Removed", "Fixed", "Security"]
errors = []


def check(true, what):
    if not true:
        errors.append(what)


def of_changelog(text):
    """Versions and dates; Unreleased comes first and has no date."""
    headings = re.findall(r"^## (.*)$", text, re.M)
    check(headings[:1] == ["[Unreleased]"], "CHANGELOG.md does not begin with Unreleased")
    found = []
    for heading in headings[1:]:
        parts = re.fullmatch(r"\[(\d+\.\d+\.\d+)\] - (\d{4}-\d\d-\d\d)", heading)
        check(parts, f"CHANGELOG.md: this is no version with its date: {heading}")
        if parts:
            found.append(parts.groups())
    for kind in re.findall(r"^### (.*)$", text, re.M):
        check(kind in KINDS, f"CHANGELOG.md: there is no kind of change called {kind}")
    for version, content in zip(headings, re.split(r"^## .*$", text, flags=re.M)[1:]):
        empty = not re.search(r"^- ", content, re.M)
        check(version == "[Unreleased]" or not empty, f"CHANGELOG.md: {version} tells nothing")
    return found


def has_unreleased(text):
    return "\n- " in text.split("\n## [Unreleased]\n", 1)[1].split("\n## ", 1)[0]


def of_debian(text):
    versions = re.findall(r"^murmelo \((\S+)-1\) unstable; urgency=\w+$", text, re.M)
    dates = [email.utils.parsedate_to_datetime(date) for date in re.findall(r"^ -- @MAINTAINER@  (.*)$", text, re.M)]
    return list(zip(versions, [date.strftime("%Y-%m-%d") for date in dates]))


def of_metainfo(path):
    return [(one.get("version"), one.get("date")) for one in tree.parse(path).getroot().iter("release")]


source, version = pathlib.Path(sys.argv[1]), sys.argv[2]
changelog = of_changelog((source / "CHANGELOG.md").read_text())
debian = of_debian((source / "packaging/debian/changelog").read_text())
metainfo = of_metainfo(source / "packaging/org.murmelo.Murmelo.metainfo.xml")
check(changelog and changelog[0][0] == version, f"the newest version of CHANGELOG.md is not {version}: {changelog}")
check(debian == changelog, f"the Debian changelog tells {debian} and not {changelog}")
check(metainfo == changelog, f"the metainfo tells {metainfo} and not {changelog}")
numbers = [tuple(map(int, one.split("."))) for one, _ in changelog]
check(numbers == sorted(set(numbers), reverse=True), f"the newest version does not come first: {numbers}")
shown = version + "+dev" if has_unreleased((source / "CHANGELOG.md").read_text()) else version
check(len(sys.argv) > 3, "no program was given")
for program in sys.argv[3:]:
    output = subprocess.run([program, "--version"], capture_output=True, text=True, check=False).stdout
    wanted = f"{os.path.basename(program)} {shown}\n"
    check(output == wanted, f"{program} --version prints {output!r} and not {wanted!r}")
print("\n".join(errors) if errors else f"{version}, and {len(changelog) - 1} before it")
sys.exit(1 if errors else 0)
