#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""licences.py SOURCE [--all]: tools/spdx finds files without a licence, and adds the line in the right place.

Also checks that the licence is the same in LICENSE, README, the Debian package, the metainfo, the man pages and the page, and
which files have another one. With --all every file of the project must have a licence.
"""
import contextlib
import glob
import importlib.machinery
import importlib.util
import os
import re
import sys
import tempfile
import xml.etree.ElementTree as tree

MARK = "SPDX-License" + "-Identifier: MIT"
REUSE = """version = 1
[[annotations]]
path = "**"
precedence = "aggregate"
SPDX-FileCopyrightText = "somebody"
[[annotations]]
path = ["**.png", "data/*"]
SPDX-License-Identifier = "MIT"
"""
# Name, text, and the same with its line; None where the file cannot carry one.
FILES = [
    ("a.cpp", "int a;\n", "// " + MARK + "\nint a;\n"),
    ("run", "#!/bin/sh\ntrue\n", "#!/bin/sh\n# " + MARK + "\ntrue\n"),
    ("_a", "#compdef a\n", "#compdef a\n# " + MARK + "\n"),
    ("a.html", "<!DOCTYPE html>\n<p>\n", "<!DOCTYPE html>\n<!-- " + MARK + " -->\n<p>\n"),
    ("b.html", "<!doctype html>\n<p>\n", "<!doctype html>\n<!-- " + MARK + " -->\n<p>\n"),
    ("a.xml", '<?xml version="1.0"?>\n<a/>\n', '<?xml version="1.0"?>\n<!-- ' + MARK + " -->\n<a/>\n"),
    ("man/a.1", ".TH A 1\n", ".\\\" " + MARK + "\n.TH A 1\n"),
    ("CMakeLists.txt", "project(a)\n", "# " + MARK + "\nproject(a)\n"),
    ("a.bin", "some bytes\n", None),
]


def tool(path):
    loader = importlib.machinery.SourceFileLoader(os.path.basename(path).replace("-", "_"), path)
    spec = importlib.util.spec_from_loader(loader.name, loader)
    module = importlib.util.module_from_spec(spec)
    loader.exec_module(module)
    return module


def put(folder, name, text):
    path = os.path.join(folder, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def get(folder, name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        return file.read()


def check(true, what):
    if not true:
        check.failed = True
        print("error: " + what)


check.failed = False


@contextlib.contextmanager
def small_project():
    """A folder with an entry for pictures and data, and the text of the licence."""
    with tempfile.TemporaryDirectory() as folder:
        put(folder, "REUSE.toml", "# " + MARK + "\n" + REUSE)
        put(folder, "LICENSES/MIT.txt", "the text")
        yield folder


def each_file_gets_its_line(spdx):
    with small_project() as folder:
        put(folder, "picture.png", "no real one")
        put(folder, "data/seed", "bytes")
        check(spdx.main(folder, False) == 0, "a file with an entry, or with a line, is all right")
        for name, text, _ in FILES:
            put(folder, name, text)
        check(spdx.main(folder, False) == len(FILES), "each file without a licence is named")
        check(get(folder, "a.cpp") == "int a;\n", "--check writes nothing")
        check(spdx.main(folder, True) == 1, "what cannot carry a line is named")
        for name, text, wanted in FILES:
            check(get(folder, name) == (wanted or text), "%s gets its line: %r" % (name, get(folder, name)))
        os.remove(os.path.join(folder, "a.bin"))
        check(spdx.main(folder, True) == 0 and get(folder, "a.cpp") == FILES[0][2], "the line is added once")
        for name in ("build/a.cpp", "tests/__pycache__/a.pyc", "sheet_actual.wav"):
            put(folder, name, "a leftover")
        check(spdx.main(folder, False) == 0, "what builds and tests leave is no part of the project")
        put(folder, ".git", "of no repository")
        check(spdx.main(folder, False) == 0, "where git does not help, the files of the folder count")
        put(folder, "data/deeper/seed", "bytes")
        check(spdx.main(folder, False) == 1, "* fits names, not paths")


def entries_are_needed_and_alone(spdx):
    with small_project() as folder:
        put(folder, "data/seed", "# " + MARK + "\n")
        check(spdx.main(folder, False) == 2, "a line besides an entry, and an entry without a file, are named")


def values_are_right(spdx):
    with small_project() as folder:
        put(folder, "a.png", "no real one")
        put(folder, "data/seed", "bytes")
        put(folder, "a.cpp", "// " + MARK + "\n")
        check(spdx.main(folder, False) == 0, "the project's licence is all right")
        for other in ("Whatever-9", "MIT-0", "MIT OR Apache-2.0"):
            put(folder, "a.cpp", "// " + MARK.replace("MIT", other) + "\n")
            check(spdx.main(folder, False) == 1, "a line with %s is named" % other)
        os.remove(os.path.join(folder, "a.cpp"))
        os.rename(os.path.join(folder, "LICENSES/MIT.txt"), os.path.join(folder, "LICENSES/BSD-2-Clause.txt"))
        check(spdx.main(folder, False) == 2, "a licence without its text, and a text without its licence, are named")


def other_licences(spdx, source):
    """Which files are not under the project's licence: others made them, or what they are made of."""
    fonts = glob.glob("res/**/*.bmf", root_dir=source, recursive=True)
    check(len(fonts) >= 3, "the fonts are found: %s" % fonts)
    wanted = dict.fromkeys(fonts + ["res/licences/clear-sans.txt"], "Apache-2.0")
    wanted["res/licences/cli11.txt"] = "BSD-3-Clause"
    wanted["web/licences/libcxx.txt"] = "Apache-2.0 WITH LLVM-exception"
    tables = spdx.annotations(source)
    entries = {path: spdx.licence_of(path, tables) for path in spdx.all_files(source, False)}
    other = {path: licence for path, licence in entries.items() if licence not in (None, spdx.LICENCE)}
    check(other == wanted, "REUSE.toml gives other licences to: %s" % sorted(set(other.items()) ^ set(wanted.items())))


def same_licence_everywhere(source):
    licence = get(source, "LICENSE").split("\n\n", 2)
    check("MIT License" in licence[0] and licence[1] == "Copyright (c) 2026 the Murmelo authors", "LICENSE says whose")
    terms = " ".join(licence[2].split())
    debian = get(source, "packaging/debian/copyright").replace("\n .\n", "\n")
    check(terms in " ".join(debian.split()), "the Debian package has the terms of LICENSE")
    check("Files: *\nCopyright: 2026 the Murmelo authors\nLicense: Expat\n" in debian, "the Debian package says whose")
    root = tree.parse(os.path.join(source, "packaging/org.murmelo.Murmelo.metainfo.xml")).getroot()
    spoken = root.findtext("project_license").split(" AND ")
    check(spoken[0] == "MIT" and root.findtext("metadata_license") == "MIT", "the metainfo says MIT")
    # Other authors' work in the package: the fonts and CLI11.
    check(sorted(spoken[1:]) == ["Apache-2.0", "BSD-3-Clause"], "the metainfo names what is contained: %s" % spoken)
    check(root.findtext("developer_name") == "The Murmelo authors", "the metainfo says whose")
    check(all("license: " + name.lower() in debian.lower() for name in spoken[1:]), "the Debian package names it, too")
    readme = " ".join(get(source, "README.md").split("## Licence")[1].split())
    check("have the MIT licence" in readme, "README says MIT")
    check("fonts (Apache 2.0) and CLI11 (BSD)" in readme, "README names what is contained")
    pages = glob.glob(source + "/docs/man/**/*.1", recursive=True)
    check(len(pages) >= 11, "the man pages are found: %s" % pages)
    for path in pages:
        chapter = re.search(r"^\.SH LICEN[CZ].*?\n(.*?)^\.SH ", get("/", path).replace("LIZENZ", "LICENZ"), re.M | re.S)
        check(chapter and re.search(r"\bMIT\b.*Expat", chapter.group(1)), "%s says MIT" % path)
    page = tool(os.path.join(source, "tools/pack-web")).licences(source).decode()
    check(page.startswith("murmelo\n=======\n\n" + get(source, "LICENSE").strip()), "the page begins with LICENSE")
    for name in ("emscripten", "libcxx", "musl", "stb", "clear-sans"):
        check("\n\n%s\n=" % name in page, "the page names %s" % name)


def main(source, everything):
    sys.dont_write_bytecode = True
    spdx = tool(os.path.join(source, "tools/spdx"))
    each_file_gets_its_line(spdx)
    entries_are_needed_and_alone(spdx)
    values_are_right(spdx)
    other_licences(spdx, source)
    same_licence_everywhere(source)
    if everything:
        check(spdx.main(source, False) == 0, "every file of the project has a licence")
    sys.exit(1 if check.failed else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]), "--all" in sys.argv[2:])
