# SPDX-License-Identifier: MIT
"""monkey.py [OPTIONS] PROGRAM SOURCE: gives the program random touches, keys, pauses and faults, and looks for errors.

Events come in journeys of a thousand, each a script for murmelo-headless in a new home. If the program ends before the
events are used up (the monkey has found "Quit"), it is started again in the same home. An event depends only on the
seed and its number, so --from 123000 continues an earlier run.

A find is a crash, a hang, an error that a script cannot cause, or a saved sound that is not complete. It is reduced to
the fewest events that still cause it, and written as a script, with the home that it began with, for

    murmelo-headless --home FIND/home --config FIND/config FIND/script

Options: --seed S, --events N, --from K, --jobs J, --finds FOLDER (where they go; the present folder if left out).
"""
import argparse
import concurrent.futures
import os
import random
import re
import shutil
import sys

import words
from journey import TEMPORARY, Place, is_whole

JOURNEY_EVENTS = 1000
PRELUDE = ["mic hello.wav", "wait 3100"]  # past the start picture

# Errors of a script that are expected: the monkey has asked for something that this screen does not offer, or has quit.
FINE = re.compile(r"^murmelo-headless: script: line \d+: (the program has ended|nothing can be saved on screen \"\w*\"|"
                  r"a sound cannot be taken on screen \"\w*\"|there is no picture yet|the program has not started yet)$")

# Commands that the monkey does not give: expectations and waits for a screen, which would end the journey on other
# screens; those that name a file of the sound folder or of the sound devices; those that need an option of the program.
LEFT_OUT = {"until", "still", "lose", "watch", "shot-canvas", "expect screen", "expect file", "expect no file", "expect effect",
            "expect ended", "remove", "mic", "speaker", "last", "forget"}


class Monkey:
    """The events of one journey."""

    def __init__(self, seed, journey, operations):
        """@param operations: the operations that can be made to fail."""
        self.operations = operations
        self.chance = random.Random(seed * 1000003 + journey)

    def place(self):
        """A random place, sometimes outside the display; seldom on the soft key that is often "Quit"."""
        while True:
            x, y = self.chance.randrange(480), self.chance.randrange(800)
            if self.chance.random() < 0.02:
                x, y = self.chance.randrange(-100000, 100000), self.chance.randrange(-2**31, 2**31)
            if not (x >= 320 and y >= 730) or self.chance.random() < 0.05:
                return "%d %d" % (x, y)

    def wait(self):
        longest = self.chance.choices([3, 30, 300, 1000, 3100, 21000], [30, 35, 25, 9, 0.8, 0.05])[0]
        return "wait %d" % self.chance.randrange(longest)

    def event(self):
        chance = self.chance
        kind = chance.choices(
            ["navigate", "tap", "part", "middle", "left", "right", "swipe", "wait", "front", "away", "volume", "silent", "save",
             "fail", "storage", "take", "shot"],
            [8, 14, 7, 22, 4, 0.3, 12, 15, 8, 0.7, 3, 0.5, 0.15, 0.2, 0.03, 0.04, 0.02])[0]
        return {
            "navigate": lambda: "navigate " + chance.choice(["up", "down", "left", "right", "middle"]),
            "tap": lambda: "tap " + self.place(),
            "part": lambda: chance.choice(["press ", "move ", "move ", "release "]) + self.place(),
            "middle": lambda: "key middle",
            "left": lambda: "key left",
            "right": lambda: "key right",
            "swipe": lambda: "swipe " + chance.choice(["left", "right"]),
            "wait": self.wait,
            "front": lambda: chance.choice(["foreground", "screen on"]),
            "away": lambda: chance.choice(["background", "screen off"]),
            "volume": lambda: "volume " + chance.choice(["up", "down"]),
            "silent": lambda: "silent " + chance.choice(["on", "off", "off"]),
            "save": lambda: "save",
            "fail": lambda: "fail %s %d" % (chance.choice(self.operations), chance.randrange(1, 5)),
            "storage": lambda: "storage %d %d" % (chance.choice([-1, 0, 1024, 1025, 1 << 30]), chance.choice([-1, 0, 5000])),
            "take": lambda: "take hello.wav",
            "shot": lambda: "shot shot.png",
        }[kind]()

    def settings(self):
        """The settings to begin with; sometimes none, for a first start."""
        return None if self.chance.random() < 0.2 else "lang=%d\n" % self.chance.randrange(5)

    def events(self):
        return [self.event() for _ in range(JOURNEY_EVENTS)]


class Find:
    """A fault: the events of the run, and the home and settings that it began with."""

    def __init__(self, outcome, what, events, before):
        self.outcome, self.what, self.events, self.before = outcome, what, events, before


class Runs:
    """Starts the program on events and judges it."""

    def __init__(self, program, source):
        self.program, self.source = program, source
        self.operations = words.of(program).operations

    def judge(self, place, outcome):
        """Empty, or what is wrong."""
        fine = outcome.kind() == "done" or (outcome.kind() in ("sentence", "message")
                                            and FINE.match(outcome.error.strip()))
        if not fine:
            return "crash" if outcome.kind() != "hang" else "hang"
        for name, content in place.sounds().items():
            if name in TEMPORARY:
                continue  # the monkey has made its removal fail
            if not is_whole(content):
                return "damage"
        return ""

    def run(self, place, events):
        outcome = place.run("\n".join(PRELUDE + events) + "\n")
        return outcome, self.judge(place, outcome)

    def fails_so(self, find, events):
        """True if these events, from the same beginning, end as the find did."""
        with Place(self.program, self.source, settings=None) as place:
            for name in ("home", "config"):
                shutil.rmtree(place.path(name))
                shutil.copytree(find.before.path(name), place.path(name))
            return self.run(place, events)[1] == find.what

    def used_up(self, outcome, events):
        """How many events the program has used before it ended."""
        return len(events) if outcome.kind() == "done" else max(outcome.line() - len(PRELUDE), 1)

    def journey(self, monkey):
        """Delivers a journey's events. Returns the numbers of starts and of saved sounds, and the find, if there is one."""
        settings, events, starts = monkey.settings(), monkey.events(), 0
        with Place(self.program, self.source, settings=settings) as place:
            while events:
                before = Place(self.program, self.source, settings=None)
                for name in ("home", "config"):
                    shutil.rmtree(before.path(name))
                    shutil.copytree(place.path(name), before.path(name))
                outcome, what = self.run(place, events)
                starts += 1
                if what:
                    return starts, 0, Find(outcome, what, events, before)
                before.__exit__()
                events = events[self.used_up(outcome, events):]
            saved = len([name for name in place.sounds() if name not in TEMPORARY])
        return starts, saved, None


def shrink(events, fails):
    """The fewest events that still fail: removes smaller and smaller pieces. fails(events) must be true at first."""
    piece = max(len(events) // 2, 1)
    while True:
        at, shrunk = 0, False
        while at < len(events):
            fewer = events[:at] + events[at + piece:]
            if fails(fewer):
                events, shrunk = fewer, True
            else:
                at += piece
        if piece == 1 and not shrunk:
            return events
        piece = max(piece // 2, 1)


def keep(find, events, folder, name):
    """Writes the find to a folder. Returns the path of its script."""
    target = os.path.join(folder, name)
    shutil.rmtree(target, ignore_errors=True)
    os.makedirs(target)
    for part in ("home", "config"):
        shutil.copytree(find.before.path(part), os.path.join(target, part))
    with open(os.path.join(target, "script"), "w") as file:
        file.write("# %s\n" % find.what + "\n".join(PRELUDE + events) + "\n")
    with open(os.path.join(target, "error"), "w") as file:
        file.write(str(find.outcome) + "\n" + find.outcome.error)
    return os.path.join(target, "script")


def report(runs, find, folder, name):
    events = find.events
    # Events after the one at which it ended were not used. A find that cannot be repeated is kept with all its events.
    if runs.fails_so(find, events):
        events = shrink(events, lambda fewer: runs.fails_so(find, fewer))
    else:
        name += "-once"
    script = keep(find, events, folder, name)
    find.before.__exit__()
    print("FIND: %s: %d events in %s\n%s" % (find.what, len(events), script, str(find.outcome)[:3000]), flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--events", type=int, default=1000000)
    parser.add_argument("--from", type=int, default=0, dest="first")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--finds", default=".")
    parser.add_argument("program")
    parser.add_argument("source")
    options = parser.parse_args()
    runs = Runs(options.program, options.source)
    first, last = options.first // JOURNEY_EVENTS, (options.first + options.events + JOURNEY_EVENTS - 1) // JOURNEY_EVENTS
    starts = saved = finds = done = 0
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        results = pool.map(lambda journey: runs.journey(Monkey(options.seed, journey, runs.operations)), range(first, last))
        for journey, (more, new, find) in zip(range(first, last), results):
            starts += more
            saved += new
            done += JOURNEY_EVENTS
            if find is not None:
                finds += 1
                report(runs, find, options.finds, "find-%d-%d" % (options.seed, journey * JOURNEY_EVENTS))
            if done % 20000 == 0 or journey + 1 == last:
                print("%d events, %d starts, %d sounds saved, %d finds; next: --seed %d --from %d"
                      % (done, starts, saved, finds, options.seed, (journey + 1) * JOURNEY_EVENTS), flush=True)
    return 1 if finds else 0


if __name__ == "__main__":
    sys.exit(main())
