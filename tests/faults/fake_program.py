#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A replacement for murmelo-headless with a fault: it crashes if its script has "swipe left", "background" and "volume
up" in this order, with anything between them. With MURMELO_FAKE_FAULT=none it does not.
"""
import os
import signal
import sys

FATAL = ["swipe left", "background", "volume up"]


LIST = """Commands:
  wait MS  lets time pass
Operations that can be told to fail:
  File.Read
  File.Write
Screens:
  Options
"""


def main():
    if "--list" in sys.argv:
        sys.stdout.write(LIST)
        return
    with open(sys.argv[-1]) as file:
        lines = file.read().splitlines()
    wanted = [] if os.environ.get("MURMELO_FAKE_FAULT") == "none" else list(FATAL)
    for number, line in enumerate(lines, 1):
        if wanted and line == wanted[0]:
            wanted.pop(0)
            if not wanted:
                os.kill(os.getpid(), signal.SIGSEGV)
        if line == "key right":
            print("murmelo-headless: script: line %d: the program has ended" % (number + 1), file=sys.stderr)
            sys.exit(1)


if __name__ == "__main__":
    main()
