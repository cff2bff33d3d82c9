#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""lists.py CTEST BUILD SOURCE: lists that are written by hand in two places say the same in both.

Fuzzers and dictionaries; names of tests in the documentation; kinds of sound files; sizes of icons; areas of commits;
numbers of the page that the C++ sources have too.
"""
import json
import os
import re
import subprocess
import sys

errors = []


def check(true, what):
    if not true:
        errors.append(what)


def same(one, other, what):
    one, other = sorted(one), sorted(other)
    check(one and one == other, "%s: %s and %s" % (what, one, other))


def read(source, path):
    with open(os.path.join(source, path), encoding="utf-8") as file:
        return file.read()


def only(pattern, text, what):
    """The one place of a text that has this form."""
    found = re.findall(pattern, text, re.M | re.S)
    check(len(found) == 1, "%s: %d places and not one" % (what, len(found)))
    return found[0] if found else ""


def rows(text, heading):
    """The rows of the table with this heading, as lists of cells."""
    table = text.split(heading, 1)[1].split("\n\n", 1)[0].splitlines()[2:]
    return [[cell.strip() for cell in row.strip("|").split(" | ")] for row in table]


def quoted(text):
    return re.findall(r"`([^`]+)`", text)


def fuzzers(source):
    files = os.listdir(source + "/fuzz")
    names = [name.removesuffix("_fuzz.cpp") for name in files if name.endswith("_fuzz.cpp")]
    table = rows(read(source, "CONTRIBUTING.md"), "| fuzzer | reads | dictionary |")
    same(names, [name for row in table for name in quoted(row[0])], "fuzz, and the table of CONTRIBUTING.md")
    table_of_input = rows(read(source, "SECURITY.md"), "| input | parsed by | fuzzed by |")
    same(names, {name for row in table_of_input for name in quoted(row[2])}, "fuzz, and the table of SECURITY.md")
    same([name for name in files if name.endswith(".dict")], {name for row in table for name in quoted(row[2])},
         "dictionaries, and the table of CONTRIBUTING.md")
    check(all(row[2] == "not fuzzed" or quoted(row[2]) for row in table_of_input), "SECURITY.md: a row names no fuzzer")


def names_of_tests(ctest, build, source):
    """Each test that a page names exists. Names with a dot are of gtest, others contain a slash."""
    listed = subprocess.run([ctest, "--test-dir", build, "-N"], stdout=subprocess.PIPE, check=True, text=True).stdout
    tests = set(re.findall(r"#\d+: (\S+)", listed))
    check(len(tests) > 100, "ctest knows only %d tests" % len(tests))
    # Each of these suites is one test; their program names its cases.
    real = subprocess.run([build + "/tests/real_tests", "--gtest_list_tests"], stdout=subprocess.PIPE, text=True)
    suite = ""
    for line in real.stdout.splitlines():
        if line.startswith("  "):
            tests.add(suite + line.split()[0])
        else:
            suite = line.strip()
    groups = {name.split("/")[0] for name in tests if "/" in name} | {"packaging", "docs", "web"}
    all_built = not any(name.endswith("_NOT_BUILT") for name in tests)
    seen = 0
    for page in ["CONTRIBUTING.md", "README.md", "SECURITY.md"] + ["docs/" + name for name in os.listdir(source + "/docs")]:
        if not page.endswith(".md") or page == "docs/behaviour.md":  # docs/behaviour-names looks at that one
            continue
        for name in quoted(read(source, page)):
            is_of_gtest = all_built and re.fullmatch(r"[A-Z]\w+\.[a-z]\w{7,}", name)
            is_script = re.fullmatch(r"([a-z-]+)/[a-z-]+", name) and name.split("/")[0] in groups
            if not is_of_gtest and not is_script or os.path.exists(os.path.join(source, name)):
                continue
            if name.startswith("web/") and "web/page" not in tests:
                continue  # built without the page
            seen += 1
            check(name in tests, "%s: there is no test called %s" % (page, name))
    check(seen >= 8, "the documentation names only %d tests" % seen)


def kinds_of_sounds(source):
    desktop = only(r"^MimeType=(.*?);$", read(source, "packaging/org.murmelo.Murmelo.desktop"), "MimeType")
    metainfo = re.findall(r"<mediatype>(.*?)</mediatype>", read(source, "packaging/org.murmelo.Murmelo.metainfo.xml"))
    same(desktop.split(";"), metainfo, "the desktop entry and the metainfo have other kinds of sounds")
    manifest = json.loads(read(source, "web/manifest.webmanifest"))
    shared = manifest["share_target"]["params"]["files"][0]["accept"]
    chosen = only(r'<input type="file" id="file" accept="([^"]*)"', read(source, "web/index.html"), "the file input")
    same(shared, chosen.split(","), "the page's share target and its choice of files accept other files")
    handled = [ending for endings in manifest["file_handlers"][0]["accept"].values() for ending in endings]
    same(handled, [one for one in shared if one.startswith(".")], "the page handles other files than it accepts")


def sizes_of_icons(source):
    drawn = only(r"^ICON_SIZES = \(([\d, ]+)\)", read(source, "art/render.py"), "ICON_SIZES")
    files = re.findall(r"murmelo-(\d+)\.png", " ".join(os.listdir(source + "/res/icons")))
    same(files, drawn.split(", "), "icons in res, which are installed, and drawn icons")
    packed = only(r"for size in \(([\d, ]+)\):", read(source, "tools/pack-web"), "the page's icons")
    check(set(packed.split(", ")) <= set(files), "the page needs an icon that is not drawn: %s" % packed)


def areas_of_commits(source):
    table = rows(read(source, "CONTRIBUTING.md"), "| area | what it changes |")
    areas = {name for row in table for name in quoted(row[0])}
    log = subprocess.run(["git", "-C", source, "log", "-500", "--no-merges", "--format=%s"], stdout=subprocess.PIPE,
                         stderr=subprocess.DEVNULL, check=False, text=True).stdout
    used = set(re.findall(r"^([a-z-]+): ", log, re.M))  # empty without git
    check(used <= areas, "CONTRIBUTING.md has no such area of commits: %s" % sorted(used - areas))


def numbers_of_the_page(source):
    def of_cpp(path, name):
        return only(r"\b%s = ([^;]+);" % name, read(source, path), "%s in %s" % (name, path)).strip('"')

    def of_page(path, name):
        return only(r"^(?:export )?const %s = ([^;]+);" % name, read(source, path), "%s in %s" % (name, path)).strip("'")

    canvas, model = "src/app/common/frame/OrmCanvas.h", "src/platform/strip/StripModel.h"
    for page, name, header, constant in (
            ("web/page/core.js", "ENDED", "src/platform/web/WebHost.h", "kEnded"),
            ("web/page/core.js", "MENU", "src/platform/host/ScreenNames.h", "kMenu"),
            ("web/page/picture.js", "WIDTH", canvas, "kWidthPx"),
            ("web/page/picture.js", "HEIGHT", canvas, "kHeightPx")):
        same([of_page(page, name)], [of_cpp(header, constant)], "%s in %s, and %s in %s" % (name, page, constant, header))
    width = of_cpp(canvas, "kWidthPx")
    same([width], [of_cpp(model, "kWidthPx")], "the widths of the picture and of the strip")


def main(ctest, build, source):
    fuzzers(source)
    names_of_tests(ctest, build, source)
    kinds_of_sounds(source)
    sizes_of_icons(source)
    areas_of_commits(source)
    numbers_of_the_page(source)
    print("\n".join(errors) or "the lists agree")
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main(sys.argv[1], *map(os.path.realpath, sys.argv[2:4]))
