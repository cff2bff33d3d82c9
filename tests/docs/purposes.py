# SPDX-License-Identifier: MIT
"""purposes.py SOURCE: checks that every file of the tests, benchmarks and fuzzers, and every flow, begins with a sentence
that says what it is for.

The sentence stands at the top: only an interpreter's line ("#!") and the SPDX line may stand above it. It is the first
paragraph of the first comment, and may follow the file's usage ("name.py ARGUMENT: ").
"""
import os
import re
import sys

import licences

COMMENTS = {".cpp": "//", ".h": "//", ".c": "//", ".js": "//", ".sh": "#", ".cmake": "#", ".txt": "#", ".dict": "#"}
MIN_WORDS = 3


def paragraph(text, mark):
    """The first paragraph of the comment that text begins with; empty if it begins with something else."""
    words = []
    for line in text.split("\n"):
        comment = line.removeprefix(mark)
        if comment == line or comment.startswith(("!", " shellcheck ")) or not comment.strip():
            break
        words += comment.split()
    return " ".join(words)


def docstring(text):
    """The first paragraph of a module's docstring; empty if it has none."""
    found = re.match(r'"""(.*?)(\n\n|""")', text, re.S)
    return " ".join(found.group(1).split()) if found else ""


def problem(name, text):
    """What is missing in the file of this name and text; None if nothing is."""
    lines = text.split("\n")
    while lines and (lines[0].startswith("#!/") or "SPDX-License" in lines[0]):
        del lines[0]
    ending = os.path.splitext(name)[1]
    rest = "\n".join(lines)
    first = docstring(rest) if ending == ".py" else paragraph(rest, COMMENTS[ending])
    if not first:
        return "begins without a comment that says what it is for"
    stem = re.escape(os.path.splitext(os.path.basename(name))[0])
    sentence = re.sub(r"^%s(\.\w+)?( [^:a-z]\S*)*: " % stem, "", first)
    if not re.search(r"[.:)]$", sentence) or len(sentence.split()) < MIN_WORDS:
        return f'begins with "{first}", which is no sentence'
    return None


def is_looked_at(name):
    folder, ending = name.split("/")[0], os.path.splitext(name)[1]
    if folder not in ("tests", "bench", "fuzz") or name.startswith(("tests/data/", "bench/results/")):
        return False
    return ending == ".py" or (ending in COMMENTS and (ending != ".txt" or name.startswith("tests/flows/")))


def check_the_check():
    """The rule finds what it must find, and nothing else."""
    good = {
        "tests/a_test.cpp": "// SPDX-License-Identifier: MIT\n// Checks one thing.\n#include <a>\n",
        "tests/b.py": '#!/usr/bin/env python3\n# SPDX-License-Identifier: MIT\n"""b.py SOURCE: checks one thing.\n\nMore."""\n',
        "tests/c.sh": "#!/bin/sh\n# c.sh PROGRAM: checks a program,\n# and more.\n",
        "tests/flows/d.txt": "# A journey to the end.\n#! pictures\ntap 1 2\n",
    }
    bad = {
        "tests/a_test.cpp": "// SPDX-License-Identifier: MIT\n#include <a>\n\n// Checks one thing.\n",
        "tests/b.py": '# SPDX-License-Identifier: MIT\nimport sys\n"""Checks one thing."""\n',
        "tests/c.sh": "#!/bin/sh\n# c.sh PROGRAM:\nset -u\n",
        "tests/flows/d.txt": "#! pictures\n# A journey to the end.\ntap 1 2\n",
        "tests/flows/e.txt": "# strip\ntap 1 2\n",
    }
    return [f"the check takes {name} for bad" for name, text in good.items() if problem(name, text)] + \
        [f"the check takes {name} for good" for name, text in bad.items() if not problem(name, text)]


def main(source):
    problems = check_the_check()
    names = list(filter(is_looked_at, licences.tool(os.path.join(source, "tools/spdx")).all_files(source, False)))
    for name in names:
        with open(os.path.join(source, name), encoding="utf-8") as file:
            found = problem(name, file.read())
        if found:
            problems.append(f"{name}: {found}")
    if len(names) < 300:
        problems.append(f"only {len(names)} files were found")
    print("\n".join(problems) if problems else f"{len(names)} files begin with their purpose")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(os.path.realpath(sys.argv[1])))
