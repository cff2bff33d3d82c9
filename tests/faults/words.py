# SPDX-License-Identifier: MIT
"""Reads what a script for murmelo-headless can contain, as the program's --list prints it."""
import subprocess


class Words:
    """The parts of the output of --list."""

    def __init__(self, text):
        parts = {}
        for line in text.splitlines():
            if not line.startswith(" "):
                part = parts.setdefault(line, [])
            else:
                part.append(line.strip())
        self.forms = [line.split("  ")[0] for line in parts["Commands:"]]  # with their arguments
        self.meanings = [line.split("  ", 1)[1].strip() for line in parts["Commands:"]]
        self.operations = parts["Operations that can be told to fail:"]
        self.screens = parts["Screens:"]

    def verbs(self):
        """The forms without their arguments, which are in capitals or have a choice in them."""
        return [" ".join(word for word in form.split() if word.islower() and "|" not in word) for form in self.forms]

    def choices(self):
        """The forms, one for each choice: "swipe left" and "swipe right"."""
        found = []
        for form in self.forms:
            words = form.split()
            at = next((i for i, word in enumerate(words) if "|" in word), None)
            for choice in [form] if at is None else words[at].split("|"):
                found.append(form if at is None else " ".join(words[:at] + [choice] + words[at + 1:]))
        return found


def of(program):
    listed = subprocess.run([program, "--list"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                            check=True)
    assert not listed.stderr, listed.stderr
    return Words(listed.stdout.decode())
