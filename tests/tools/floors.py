# SPDX-License-Identifier: MIT
"""floors.py BUILD SOURCE: checks that the build lets each folder include exactly what docs/architecture.md says.

The table there has a line for each folder: its path, and the folders whose headers it may include. The compiler's real
include paths are in the build folder's compile_commands.json.
"""
import json
import os
import re
import shlex
import sys


def drawn(source):
    """A dictionary from each folder to the folders that it may include by the table."""
    with open(os.path.join(source, "docs/architecture.md"), encoding="utf-8") as file:
        lines = re.findall(r"^\| `(src/\S+)` \| ([^|]*) \|", file.read(), re.M)
    short = {os.path.basename(folder): folder for folder, _ in lines}
    floors = {}
    for folder, names in lines:
        floors[folder] = {short[name.strip()] for name in names.split(",") if name.strip()}
    return floors


def built(build, source):
    """A dictionary from each folder to the project's folders on the include path of its sources."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    found = {}
    for command in commands:
        folder = os.path.relpath(os.path.dirname(command["file"]), source)
        if not folder.startswith("src/") or os.path.basename(command["file"]) == "main.cpp":
            continue  # a main() also sees the program's entry
        paths = {os.path.relpath(word[2:], source) for word in shlex.split(command["command"]) if word.startswith("-I")}
        found.setdefault(folder, set()).update(path for path in paths - {folder} if path.startswith("src/"))
    return found


def lying(source):
    """The folders that have sources."""
    return {os.path.relpath(folder, source) for folder, _, files in os.walk(os.path.join(source, "src"))
            if any(name.endswith(".cpp") for name in files)}


def main(build, source):
    wanted, found = drawn(source), built(build, source)
    errors = 0
    for folder in sorted(lying(source) - wanted.keys()):
        print("%s: not in the table" % folder)
        errors = 1
    for folder in sorted(wanted.keys() | found.keys()):
        if folder not in wanted or folder not in found:
            print("%s: only in the %s" % (folder, "build" if folder in found else "table"))
            errors = 1
            continue
        for more, where in ((found[folder] - wanted[folder], "may be included, but is not in the table"),
                            (wanted[folder] - found[folder], "is in the table, but cannot be included")):
            for other in sorted(more):
                print("%s: %s %s" % (folder, other, where))
                errors = 1
    # The table is ordered: a folder includes only folders on lower lines, so there is no circle.
    lines = list(wanted)
    for folder, others in wanted.items():
        for other in others:
            if lines.index(other) < lines.index(folder):
                print("%s stands below %s, which it includes" % (folder, other))
                errors = 1
    return errors or not wanted


if __name__ == "__main__":
    sys.exit(main(os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2])))
