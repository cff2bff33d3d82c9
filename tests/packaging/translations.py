#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""translations.py SOURCE: compares the man pages in other languages with the English ones, as far as a program can.

A translation has the sections, paragraphs and entries of the English page in their order, the same options, effects,
variables and files as their tags, the same numbers, and the same examples. No sentence is left in English, each page renders
without a warning, and no English entry has changed since it was translated (tools/man-translations notes that).
"""
import importlib.machinery
import importlib.util
import os
import re
import subprocess
import sys

PAGES = ("murmelo", "murmelo-fx")


def without_examples(text):
    return re.sub(r"^\.EX\n.*?^\.EE\n", "", text, flags=re.M | re.S)


def structure(text):
    """The macros that begin sections, paragraphs and entries, and the marks of the generated lists."""
    return re.findall(r"^\.(SH|SS|TP|PP|EX|EE|RS|RE|br)\b", text, re.M)


def tags(text):
    """The words that are not translated: options, names in capitals or with a point or an underline, effects."""
    found = []
    for tag in re.findall(r"^\.TP\n(.*)$", text, re.M):
        found += re.findall(r"\\-\\-[a-z\\-]+|\\-h\b|\b[A-Z]{3,}_[A-Z_]+|DISPLAY\b|[\w~/.]*[_/.][\w/.]*[a-z]|^\.B [a-z]+$|\bF\d+\b|^\.B \d$",
                            tag)
    # The names of files and of values that are arguments are translated.
    return [name for name in found if name not in (".BI", ".BR", ".B", ".I", ".IR", ".RB") and not name.endswith(".wav")]


def numbers(text):
    return sorted(re.findall(r"(?<![\w.,\\])\d{2,}(?![\w,.]\d)", without_examples(text)))


def sentences(text):
    return {line for line in without_examples(text).splitlines() if not line.startswith((".", "'")) and len(line) > 12}


def examples(text):
    return re.findall(r"^\.EX\n.*?^\.EE\n", text, re.M | re.S)


def warnings(path):
    environment = dict(os.environ, MANROFFSEQ="", MANWIDTH="80", LC_ALL="C.UTF-8")
    output = ""
    for command in (["groff", "-Kutf8", "-ww", "-man", "-Tutf8", path],
                    ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", path]):
        done = subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, check=False)
        output += done.stderr.decode()
        if done.returncode or not done.stdout:
            output += "%s fails\n" % command[0]
    return output


def notes_of(source):
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("man_translations", source + "/tools/man-translations")
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


def changed_entries_are_named(notes):
    """With a changed, a new or a removed entry, and with a comment, which is no text."""
    english = '.\\" a comment\n.TH A\n.SH NAME\na \\- b\n.SH OPTIONS\n.TP\n.B \\-\\-one\nOne.\n.TP\n.B \\-\\-two\nTwo.\n'
    translated = "".join(notes.NOTE + digest + "\n" for _, digest in notes.entries(english))
    same = [english, english.replace("a comment", "another"), english.replace("One.\n", "One.\n.\\\" more\n")]
    changed = {"OPTIONS: .B \\-\\-one": english.replace("One.", "One more."),
               "OPTIONS: .B \\-\\-three": english + ".TP\n.B \\-\\-three\nThree.\n"}
    wrong = [text for text in same if notes.outdated(translated, text)]
    wrong += [text for name, text in changed.items() if notes.outdated(translated, text) != [name]]
    wrong += [] if len(notes.outdated("no notes", english)) == 4 else ["a translation without notes passes"]
    return wrong


def problems(path, page, english, translated):
    for what, read in (("its parts", structure), ("the tags of its entries", tags), ("the numbers", numbers),
                       ("the examples", examples)):
        wanted, found = read(english), read(translated)
        if wanted != found:
            missing = [one for one in wanted if one not in found]
            more = [one for one in found if one not in wanted]
            yield "%s are not those of the English page: missing %s, besides %s" % (what, missing, more)
    left = sorted(sentences(english) & sentences(translated))
    if left:
        yield "is left in English: %s" % left
    output = warnings(path)
    if output:
        yield output
    known = subprocess.run(["lexgrog", path], stdout=subprocess.PIPE, check=False).stdout.decode()
    if '"%s - ' % page not in known:
        yield "whatis would not find it: " + known


def main(source):
    notes = notes_of(source)
    wrong = changed_entries_are_named(notes)
    if wrong:
        sys.exit("tools/man-translations is wrong about: %s" % wrong)
    errors = 0
    languages = sorted(folder.name for folder in os.scandir(source + "/docs/man") if folder.is_dir())
    if not languages:
        sys.exit("there are no man pages in other languages")
    for page in PAGES:
        with open("%s/docs/man/%s.1" % (source, page), encoding="utf-8") as file:
            english = file.read()
        for language in languages:
            path = "%s/docs/man/%s/%s.1" % (source, language, page)
            with open(path, encoding="utf-8") as file:
                translated = file.read()
            old = ['the English text of "%s" has changed (tools/man-translations, when it is translated)' % name
                   for name in notes.outdated(translated, english)]
            for problem in old + list(problems(path, page, english, notes.without_notes(translated))):
                print("%s/%s.1: %s" % (language, page, problem))
                errors += 1
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]))
