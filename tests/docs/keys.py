#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""keys.py PRINT_KEYS SOURCE: the README, the man pages and the help of the program name the keys that the program has.

PRINT_KEYS prints the keys and the help. README and the man pages of murmelo must name every key once, and no other. The
help has less room: each of its sentences must name only keys that exist, and together they must name every key that is
not left out below.
"""
import pathlib
import re
import subprocess
import sys

# The same key without Shift, where "+" needs Shift.
ALIASES = {"=", "Ctrl+="}
# These keys have a picture on them and no name.
PICTURED = {"VolumeUp", "VolumeDown"}
# Keys that the help leaves out: others that it names do the same, or the help is open.
NOT_IN_HELP = {"Space", "Ctrl+S", "Ctrl+O", "Ctrl+W", "Alt+Enter", "?"} | PICTURED
# The help of the window leaves out what the mouse does as well, at buttons and at the window's edge.
NOT_IN_HELP_OF_WINDOW = {"F1", "F2", "+", "-", "Ctrl++", "Ctrl+-", "Ctrl+0"}
# A browser has its own meaning for these, or the page has no such action.
NOT_IN_PAGE = {"F11", "F12", "Ctrl+Q", "Ctrl+0", "Ctrl++", "Ctrl+-", "Ctrl+Shift+S"}
ARROWS = {"Left", "Right", "Up", "Down"}
HELP_OF_WINDOW = ["helpRecordKeys", "helpMoreKeys", "helpFileKeys"]
HELP_OF_PAGE = ["helpRecordKeys", "helpKeys"]

# What is written on the keys in each language.
NAMES = {
    "en": {"Esc": "Escape", "arrows": ARROWS},
    "de": {"Links": "Left", "Rechts": "Right", "Auf": "Up", "Ab": "Down", "Eingabe": "Enter", "Leertaste": "Space",
           "Esc": "Escape", "Strg": "Ctrl", "Umschalt": "Shift", "Pfeiltasten": ARROWS, "Eingabetaste": "Enter"},
    "es": {"Izquierda": "Left", "Derecha": "Right", "Arriba": "Up", "Abajo": "Down", "Intro": "Enter",
           "Espacio": "Space", "Esc": "Escape", "Mayús": "Shift", "flechas": ARROWS},
    "fr": {"Gauche": "Left", "Droite": "Right", "Haut": "Up", "Bas": "Down", "Entrée": "Enter", "Espace": "Space",
           "Échap": "Escape", "Maj": "Shift", "flèches": ARROWS},
    "it": {"Sinistra": "Left", "Destra": "Right", "Su": "Up", "Giù": "Down", "Invio": "Enter", "Spazio": "Space",
           "Esc": "Escape", "Maiusc": "Shift", "frecce": ARROWS},
}
RANGE = r"\b(\d)\s(?:to|bis|a|à|al)\s(\d)\b"  # the spaces may be those at which no row ends

errors = []


def names(keys):
    return ", ".join(sorted(keys))


def compare(place, wanted, found):
    twice = {key for key in found if found.count(key) > 1}
    if twice:
        errors.append(f"{place} names twice: {names(twice)}")
    if wanted - set(found):
        errors.append(f"{place} lacks {names(wanted - set(found))}")
    if set(found) - wanted:
        errors.append(f"{place} names {names(set(found) - wanted)}: no such key, or one that keys.py leaves out")


def digits(first, last):
    return [str(digit) for digit in range(int(first), int(last) + 1)]


def english(key, language):
    """Translates what is written on a key, with its modifiers; "Ctrl++" has a plus as its last part."""
    parts = re.findall(r"[^+]+|\+$|^\+", key)
    return "+".join(NAMES[language].get(part, part) for part in parts)


def of_readme(text):
    table = text.split("| key | does |", 1)[1].split("\n\n", 1)[0].splitlines()[2:]
    found = []
    for row in table:
        cell = row.split("|")[1].strip().replace("(and the volume keys)", "").strip()
        numbers = re.fullmatch(RANGE, cell)
        found += digits(*numbers.groups()) if numbers else re.split("[,;] ", cell)
    return found


def of_man_page(text, language):
    """The tags of the entries in the chapter of the keys."""
    chapter = [part for part in re.split(r"^\.SH ", text, flags=re.M) if "\n.BR F11 " in part]
    tags = re.findall(r"^\.TP\n\.BR? (.*)$", chapter[0], re.M) if len(chapter) == 1 else []
    found = []
    for tag in tags:
        words = re.sub(r' ?"([^"]*)" ?', r"\1", tag).replace("\\-", "-")
        numbers = re.fullmatch(RANGE, words)
        found += digits(*numbers.groups()) if numbers else words.split(", ")
    return [english(key, language) for key in found]


def of_help(text, language):
    """Everything in a sentence that looks like a key."""
    found = []
    for numbers in re.finditer(RANGE, text):
        found += digits(*numbers.groups())
    text = re.sub(RANGE, "", text)
    own = sorted([name for name, key in NAMES[language].items() if key not in ("Ctrl", "Shift")], key=len, reverse=True)
    modifiers = "|".join(["Ctrl", "Alt", "Shift"] + list(NAMES[language]))
    sign = r"(?<=\s)[+-](?=[\s:\u00A0])|^[+-](?=\s)"
    # A letter is a key only where it stands alone; in French and Italian a word may begin with a letter and an apostrophe.
    named = rf"(?<![\w’])(?:{'|'.join(own + ['Enter'])})(?!\w)"
    pattern = rf"(?:(?:{modifiers})\+)*(?:\bF\d+\b|{named}|(?<![\w’])[A-Z](?![\w’])|{sign})"
    for key in re.findall(pattern, text):
        name = NAMES[language].get(key)
        found += sorted(name) if isinstance(name, set) else [english(key, language)]
    return found


def main(program, source):
    lines = subprocess.run([program], check=True, capture_output=True, text=True).stdout.splitlines()
    keys = {line for line in lines if "\t" not in line} - ALIASES
    texts = {}
    for language, name, text in (line.split("\t") for line in lines if "\t" in line):
        texts[language, name] = text
    languages = {language for language, _ in texts}
    if len(keys) < 30 or languages != set(NAMES):
        sys.exit(f"there are {len(keys)} keys, and help in {sorted(languages)}")

    compare("README.md", keys - PICTURED, of_readme((source / "README.md").read_text()))
    for page in sorted((source / "docs/man").rglob("murmelo.1")):
        language = "en" if page.parent.name == "man" else page.parent.name
        compare(page.relative_to(source), keys - PICTURED, of_man_page(page.read_text(), language))

    for language in sorted(languages):
        for what, sentences, left_out in (("the window", HELP_OF_WINDOW, NOT_IN_HELP_OF_WINDOW),
                                          ("the page", HELP_OF_PAGE, NOT_IN_PAGE)):
            found = [key for name in sentences for key in of_help(texts[language, name], language)]
            compare(f"the help of {what} in {language}", keys - NOT_IN_HELP - left_out, found)

    print("\n".join(errors) or f"{len(keys)} keys")
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main(sys.argv[1], pathlib.Path(sys.argv[2]))
