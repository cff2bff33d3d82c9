# SPDX-License-Identifier: MIT
"""faces.py: checks where each creature's eyes and mouth are on the screen: no window of the program may cover them.

The menu is below these rows and the progress window above them. The tests of both check that; this checks the drawings.
"""
import copy
import os
import sys
import xml.etree.ElementTree as ET

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "art"))

import render  # noqa: E402

FIRST_ROW, LAST_ROW = 72, 169


def only_face(element):
    """Removes all elements that are not part of the face and do not contain it. Returns True if the face was found."""
    if element.get("id") == "face":
        return True
    found = False
    for child in list(element):
        if child.tag == render.SVG + "defs":
            continue
        if only_face(child):
            found = True
        else:
            element.remove(child)
    return found


def main():
    problems = []
    for name, (x, y, width, height) in render.CHARACTERS.items():
        root = copy.deepcopy(ET.fromstring(render.source("characters/%s.svg" % name)))
        if not only_face(root):
            problems.append("%s.svg has no group with the id \"face\"" % name)
            continue
        face = render.rasterise(ET.tostring(root), width, height).getchannel("A").point(lambda a: 255 * (a > 64))
        box = face.getbbox()
        if not box or y + box[1] < FIRST_ROW or y + box[3] - 1 > LAST_ROW:
            problems.append("%s: the face takes rows %d to %d" % (name, y + box[1], y + box[3] - 1))
        elif "--show" in sys.argv:
            print("%s: rows %d to %d" % (name, y + box[1], y + box[3] - 1))
    for problem in problems:
        print("faces: " + problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
