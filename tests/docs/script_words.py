# SPDX-License-Identifier: MIT
"""script_words.py PROGRAM SOURCE: checks that "murmelo-headless --list" has the operations and commands that the sources
and the monkey use, and no others.

It compares the operations that the platform asks for, and the commands that the monkey gives or leaves out. Every command
must have an explanation. (tools/man-lists compares the man pages with the list.)
"""
import glob
import os
import re
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "../faults"))
import monkey  # noqa: E402
import words  # noqa: E402

MONKEYS_JOURNEYS = 100


def asked_for(source):
    """The operations for which the platform's code asks if they are to fail."""
    found = []
    for path in glob.glob(os.path.join(source, "src/**/*.cpp"), recursive=True):
        with open(path, encoding="utf-8") as file:
            found += re.findall(r'hostFails\("([^"]*)"', file.read())
    return found


def classes_of_screens(source):
    found = []
    for path in glob.glob(os.path.join(source, "src/app/common/screens/*.h")):
        with open(path, encoding="utf-8") as file:
            found += re.findall(r"^class (\w+) : public (?:Screen|State) ", file.read(), re.M)
    found.remove("Screen")
    return found


def of_the_monkey(listed):
    """The commands that the monkey gives in many journeys, and those that it leaves out."""
    verbs = sorted(listed.verbs(), key=len, reverse=True)
    given = set(monkey.PRELUDE[1:])
    for journey in range(MONKEYS_JOURNEYS):
        given |= set(monkey.Monkey(1, journey, listed.operations).events())
    begins = {next((verb for verb in verbs if (event + " ").startswith(verb + " ")), event) for event in given}
    both = begins & monkey.LEFT_OUT
    return sorted(begins | monkey.LEFT_OUT) + sorted(both)


def compare(what, listed, found, may_repeat=False):
    """Prints each difference. Returns their number."""
    errors = [f"{what}: {name} is missing" for name in listed if name not in found]
    errors += [f"{what}: {name} is not in --list" for name in dict.fromkeys(found) if name not in listed]
    if not may_repeat:
        errors += [f"{what}: {name} stands there more than once" for name in listed if found.count(name) > 1]
    print("\n".join(errors) if errors else f"{what}: {len(listed)} as listed")
    return len(errors)


def main(program, source):
    listed = words.of(program)
    errors = compare("--list, once each", sorted(set(listed.choices())), listed.choices())
    errors += compare("--list, verbs", sorted(set(listed.verbs())), listed.verbs())
    errors += compare("src, screens", listed.screens, classes_of_screens(source))
    errors += compare("src, operations", listed.operations, asked_for(source), may_repeat=True)
    errors += compare("the monkey, commands", listed.verbs(), of_the_monkey(listed))
    short = [form for form, meaning in zip(listed.forms, listed.meanings) if len(meaning.split()) < 3]
    print("\n".join(f"--list: {form} has no meaning" for form in short))
    sys.exit(1 if errors or short or len(listed.forms) < 31 or len(listed.operations) < 32 else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2]))
