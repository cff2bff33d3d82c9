# SPDX-License-Identifier: MIT
"""circles.py SOURCE: checks that classes include one another only in small circles, each within one folder.

A class is a header with its source; a source without a header of its own belongs to the first class of its folder that it
includes, and a main.cpp to none.
"""
import os
import re
import sys

MAX_MEMBERS = 6


def read(source):
    """A dictionary from the path of each header and source to what it includes."""
    files = {}
    for folder, _, names in os.walk(os.path.join(source, "src")):
        for name in names:
            if name.endswith((".h", ".cpp")):
                path = os.path.join(folder, name)
                with open(path, encoding="utf-8") as file:
                    files[os.path.relpath(path, source)] = re.findall(r'^#include "(?:.*/)?([^"/]+)"', file.read(), re.M)
    return files


def classes(files):
    """A dictionary from each class (its header's path without the ending) to the classes that it includes."""
    headers = {os.path.basename(path): path for path in files if path.endswith(".h")}

    def owner(path):
        stem = os.path.splitext(path)[0]
        if stem + ".h" in files or os.path.basename(path) == "main.cpp":
            return stem
        near = [headers[name] for name in files[path] if os.path.dirname(headers[name]) == os.path.dirname(path)]
        return os.path.splitext(near[0])[0] if near else stem

    found = {}
    for path, names in files.items():
        one = found.setdefault(owner(path), set())
        one |= {headers[name][:-2] for name in names if name in headers} - {owner(path)}
    return found


def reached(graph, start):
    found, waiting = set(), [start]
    while waiting:
        for other in graph.get(waiting.pop(), ()):
            if other not in found:
                found.add(other)
                waiting.append(other)
    return found


def circles(graph):
    """The sets of classes that include one another, directly or not, the largest first."""
    reach = {one: reached(graph, one) for one in graph}
    sets = {frozenset(other for other in reach[one] if one in reach[other]) for one in graph if one in reach[one]}
    return sorted((sorted(one) for one in sets), key=lambda one: (-len(one), one))


def main(source):
    errors = 0
    graph = classes(read(source))
    for circle in circles(graph):
        folders = {os.path.dirname(one) for one in circle}
        print(len(circle), ", ".join(sorted(folders)) + ":", " ".join(os.path.basename(one) for one in circle))
        if len(circle) > MAX_MEMBERS or len(folders) > 1:
            print("  is too large, or in more than one folder")
            errors = 1
    return errors or len(graph) < 100


if __name__ == "__main__":
    sys.exit(main(os.path.realpath(sys.argv[1])))
