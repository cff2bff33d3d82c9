# SPDX-License-Identifier: MIT
"""all_run.py SOURCE: checks that every test below tests and fuzz is run.

A test that no list of the build names never runs, and so never fails. A file in C or C++ must be named with its path in
a .cmake file or in another script (fuzzers by their name alone), a script by its name there or in another test.
"""
import glob
import os
import re
import sys

LISTS = (".cmake", "CMakeLists.txt")
SCRIPTS = (".sh", ".py")
SOURCES = (".cpp", ".c")


def files_below(source):
    """A dictionary from each file's path to its text; files that tests read as data are left out."""
    found = {}
    for folder in ("tests", "fuzz"):
        for path in glob.glob(os.path.join(source, folder, "**", "*"), recursive=True):
            name = os.path.relpath(path, source)
            if os.path.isfile(path) and not name.startswith("tests/data/") and "__pycache__" not in name:
                with open(path, encoding="utf-8", errors="replace") as file:
                    found[name] = file.read()
    return found


def is_named(name, texts):
    """True if a list of the build, or another script, names the file."""
    stem = os.path.splitext(os.path.basename(name))[0]
    if name.startswith("fuzz/"):
        word, where = stem.removesuffix("_fuzz"), LISTS
    elif name.endswith(SOURCES):
        word, where = os.path.relpath(name, "tests"), LISTS
    else:
        # The name may lack its ending: a loop adds it, or it is a module. Tests in C++ may start scripts too.
        word, where = stem, LISTS + SCRIPTS + SOURCES
    return any(re.search(r"(?<![\w-])%s(?![\w-])" % re.escape(word), text)
               for other, text in texts.items() if other != name and other.endswith(where))


def main(source):
    texts = files_below(source)
    lost = [name for name in texts if name.endswith(SOURCES + SCRIPTS) and not is_named(name, texts)]
    for name in sorted(lost):
        print("%s: nothing runs it" % name)
    if len(texts) < 100:
        print("only %d files were found" % len(texts))
    return 1 if lost or len(texts) < 100 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
