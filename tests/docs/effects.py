#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""effects.py PROGRAM SOURCE: checks that each text that lists the effects has all of them, in their order, and no other.

PROGRAM is murmelo-fx; its --list is the catalogue.
"""
import ast
import pathlib
import re
import struct
import subprocess
import sys

program, source = sys.argv[1], pathlib.Path(sys.argv[2])
errors = []


def output(*arguments):
    done = subprocess.run([program, *arguments], capture_output=True, text=True, check=False)
    return done.stdout + done.stderr


def read(path):
    return (source / path).read_text()


def value(path, name):
    """The value of a constant of a script in Python."""
    for statement in ast.parse(read(path)).body:
        if isinstance(statement, ast.Assign) and statement.targets[0].id == name:
            return ast.literal_eval(statement.value)
    sys.exit(f"{path} has no {name}")


def between(text, begin, end):
    return text.split(begin, 1)[1].split(end, 1)[0]


def compare(place, wanted, found):
    if found != wanted:
        errors.append(f"{place} names {found} and not {wanted}")


def first_cells(table):
    """The first column of a Markdown table, without its head."""
    return [line.split("|")[1].strip() for line in table.splitlines() if line.startswith("|")][2:]


def meant_by(name):
    """The name in murmelo-fx of an effect of the application."""
    hint = re.search(r'did you mean "(\w+)"', output(name.lower(), "no-such-input", "no-such-output.wav"))
    return hint.group(1) if hint else name.lower()


words = [line.split()[0] for line in output("--list").splitlines()]
if len(words) < 8:
    sys.exit(f"--list names too few effects: {words}")

help_text = " ".join(output("--help").split())
compare("--help", ", ".join(words), between(help_text, "EFFECT is one of: ", ";"))

journeys = {path.stem.removeprefix("effect-"): path for path in (source / "tests/flows").glob("effect-*.txt")}
compare("tests/flows/effect-*.txt", sorted(words), sorted(journeys))
for word, path in journeys.items():
    compare(path.name, [word], re.findall(r"^#! heard speaker\.wav (\w+) ", path.read_text(), re.M))

screens = read("tests/flows/screens.sh")
compare("the loop of screens.sh", words[2:], between(screens, "$(for effect in ", ";").split())
compare("the sheet of screens.sh", words[1:], between(screens, " process play ", "\n").split())

compare("README.md", words, [meant_by(name) for name in first_cells(between(read("README.md"), "## What it does", "## "))])
compare("docs/speed.md", words, first_cells(between(read("docs/speed.md"), " play -->\n", "\n\n")))

keys = f"1 to {len(words)}"
compare("the keys in README.md", [keys], re.findall(r"^\| (1 to \d+) \|", read("README.md"), re.M))
for page in sorted((source / "docs/man").rglob("murmelo.1")):
    last = re.findall(r'^\.BR 1 " \w+ " (\d+)$', page.read_text(), re.M)
    compare(f"the keys in {page.relative_to(source)}", [str(len(words))], last)

compare("tools/bench", words, value("tools/bench", "_WORKS")[:len(words)])
compare("art/compose.py", words, [meant_by(title) for _, title in value("art/compose.py", "EFFECTS")])

heads = (source / "res/Res/strip/heads.png").read_bytes()
width, height = struct.unpack(">II", heads[16:24])
compare("the width of heads.png", len(words) * height, width)

dictionary = re.findall(r'^"([a-z]+)\\x0a"$', read("fuzz/options.dict"), re.M)
compare("fuzz/options.dict", words, dictionary)

for line in errors:
    print(line)
sys.exit(1 if errors else 0)
