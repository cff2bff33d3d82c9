# SPDX-License-Identifier: MIT
"""compare.py MADE COMMITTED: checks that every newly made picture equals the committed one, pixel for pixel."""
import os
import sys

from PIL import Image


def pictures(folder):
    return {name for name in os.listdir(folder) if name.endswith(".png")}


def same(a, b):
    with Image.open(a) as first, Image.open(b) as second:
        alike = first.mode == second.mode and first.size == second.size
        return alike and first.convert("RGBA").tobytes() == second.convert("RGBA").tobytes()


def main():
    made, committed = sys.argv[1:]
    problems = ["%s is not made by any source" % n for n in sorted(pictures(committed) - pictures(made))]
    for name in sorted(pictures(made)):
        path = os.path.join(committed, name)
        if not os.path.exists(path):
            problems.append(name + " is not committed")
        elif not same(os.path.join(made, name), path):
            problems.append(name + " no longer matches its source: run art/render.sh")
    for problem in problems:
        print("compare: " + problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
