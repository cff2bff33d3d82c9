"""script_words.py PROGRAM SOURCE: what "murmelo-headless --list" names is what pages, sources and monkey know: nothing is
missing, and nothing is there besides.

Compared are the commands with their arguments, the operations that can be told to fail and the screens, in
docs/headless.md and the man page; the operations that the platform asks for; and the commands that the monkey gives.
"""
import glob
import os
import re
import shlex
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "../faults"))
import monkey  # noqa: E402
import words  # noqa: E402

OPERATION = r"[A-Z][A-Za-z]+\.[A-Z][A-Za-z]+"
MONKEYS_JOURNEYS = 100


class Page:
    """What a page names."""

    def __init__(self, commands, operations, screens):
        self.commands, self.operations, self.screens = commands, operations, screens


def of_markdown(text):
    commands = []
    for row in re.findall(r"^\| (`.*?) \|", text, re.M):
        commands += re.findall(r"`([^`]+)`", row)
    screens = re.search(r"^Screens are (.*?);", text, re.M | re.S).group(1)
    return Page(commands, re.findall(OPERATION, text), re.findall(r"`(\w+)`", screens))


def unmacroed(line):
    """A line of a man page as it is read: the words of .BI and its like stand close together."""
    if re.match(r"\.[BIR]{2} ", line):
        line = "".join(shlex.split(line)[1:])
    line = re.sub(r"^\.[BIR] ", "", line)
    return re.sub(r"\\f.", "", line).replace("\\-", "-").strip('"')


def of_man_page(text):
    script = re.search(r"^\.SH SCRIPT\n(.*?)^\.SH ", text, re.M | re.S).group(1)
    commands = []
    for tag in re.findall(r"^\.TP\n(.*)$", script, re.M):
        commands += unmacroed(tag).split(", ")
    screens = re.search(r"^Screens are\n(.*)", script, re.M | re.S).group(1)
    screens = [unmacroed(line) for line in screens.splitlines()]
    return Page(commands, re.findall(OPERATION, script), re.findall(r"[A-Z]\w+", " ".join(screens)))


def asked_for(source):
    """The operations of which the platform asks whether they are to fail."""
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
    """The commands that it gives in many journeys, and those that it leaves out."""
    verbs = sorted(listed.verbs(), key=len, reverse=True)
    given = set(monkey.PRELUDE[1:])
    for journey in range(MONKEYS_JOURNEYS):
        given |= set(monkey.Monkey(1, journey, listed.operations).events())
    begins = {next((verb for verb in verbs if (event + " ").startswith(verb + " ")), event) for event in given}
    both = begins & monkey.LEFT_OUT
    return sorted(begins | monkey.LEFT_OUT) + sorted(both)


def compare(what, listed, found, may_repeat=False):
    """How many differences there are; each is told."""
    wrong = [f"{what}: {name} is missing" for name in listed if name not in found]
    wrong += [f"{what}: {name} is not in --list" for name in dict.fromkeys(found) if name not in listed]
    if not may_repeat:
        wrong += [f"{what}: {name} stands there more than once" for name in listed if found.count(name) > 1]
    print("\n".join(wrong) if wrong else f"{what}: {len(listed)} as listed")
    return len(wrong)


def main(program, source):
    listed = words.of(program)
    wrong = compare("--list, once each", sorted(set(listed.choices())), listed.choices())
    wrong += compare("--list, verbs", sorted(set(listed.verbs())), listed.verbs())
    for path, reader in (("docs/headless.md", of_markdown), ("docs/man/murmelo-headless.1", of_man_page)):
        with open(os.path.join(source, path), encoding="utf-8") as file:
            page = reader(file.read())
        wrong += compare(path + ", commands", listed.choices(), page.commands)
        wrong += compare(path + ", operations", listed.operations, page.operations, may_repeat=True)
        wrong += compare(path + ", screens", listed.screens, page.screens)
    wrong += compare("src, screens", listed.screens, classes_of_screens(source))
    wrong += compare("src, operations", listed.operations, asked_for(source), may_repeat=True)
    wrong += compare("the monkey, commands", listed.verbs(), of_the_monkey(listed))
    short = [form for form, meaning in zip(listed.forms, listed.meanings) if len(meaning.split()) < 3]
    print("\n".join(f"--list: {form} has no meaning" for form in short))
    sys.exit(1 if wrong or short or len(listed.forms) < 31 or len(listed.operations) < 32 else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2]))
