# SPDX-License-Identifier: MIT
"""class_list.py SOURCE: checks that every class with a class initialiser or finaliser is in the class list."""
import glob
import os
import re
import sys


def main(source):
    room = os.path.join(source, "src/app/common")
    with open(os.path.join(room, "assembly/ClassList.cpp"), encoding="utf-8") as file:
        listed = set(re.findall(r"\bentry<(\w+)>", file.read()))
    found = set()
    for path in glob.glob(os.path.join(room, "*/*.h")):
        with open(path, encoding="utf-8") as file:
            if re.search(r"\bstatic void static_[cd]tor\(\)", file.read()):
                found.add(os.path.basename(path).removesuffix(".h"))
    missing = sorted(found - listed)
    for name in missing:
        print("%s has a class initialiser or finaliser, and is not in ClassList.cpp" % name)
    return 1 if missing or len(found) < 20 else 0


if __name__ == "__main__":
    sys.exit(main(os.path.realpath(sys.argv[1])))
