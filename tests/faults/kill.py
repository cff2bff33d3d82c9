# SPDX-License-Identifier: MIT
"""kill.py PROGRAM SOURCE: the program is killed at a random moment of a random journey, two hundred times.

Outcome: every sound in the folder, whether or not it was reported as saved, is complete and equals the sound that
the same journey saves without a kill; every sound that was reported is there. After that the program starts
normally, removes what the kill has left, records, and saves under the next number.

There are fifty journeys, each killed four times. MURMELO_TEST_KILLS and MURMELO_TEST_SEED change the number of kills
and the journeys.
"""
import os
import random
import signal
import subprocess
import sys
import time

from journey import STOP_OFFERED_MS, TEMPORARY, Place, Verdict, is_whole, sanitized

LATER = """until Options
mic hello.wav
key middle
until Record
key middle
until Recording
wait 800
key middle
until Play 1000
save
until Save
expect file %s
key middle
"""


KILLS_OF_ONE_JOURNEY = 4


class Journey:
    """Random recordings, effects, plays and saves; after each save the script writes a file, as a report."""

    def __init__(self, chance):
        self.chance = chance
        self.lines = ["until Options", "mic hello.wav"]
        self.saves = 0

    def record(self):
        self.lines += ["key middle", "until Record", "key middle", "until Recording"]
        if self.chance.random() < 0.2:
            self.lines += ["until Play"]  # the whole twenty seconds
        else:
            self.lines += ["wait %d" % self.chance.randrange(STOP_OFFERED_MS, 2000), "key middle", "until Play 1000"]

    def again(self):
        self.lines += ["key left", "until Options"]
        self.record()

    def turn(self):
        self.lines += ["swipe " + self.chance.choice(["left", "right"]), "wait 700"]

    def play(self):
        self.lines += ["key middle", "until Playing", "until Play"]

    def save(self):
        self.lines += ["save", "until Save", "speaker reported_%05d.wav" % self.saves, "key middle", "until Options",
                       "key right", "until Play"]
        self.saves += 1

    def script(self):
        self.record()
        for _ in range(self.chance.randrange(3, 9)):
            self.chance.choices([self.again, self.turn, self.play, self.save], [1, 2, 1, 4])[0]()
        return "\n".join(self.lines) + "\n"


class Killing:
    def __init__(self, program, source, seed):
        self.program, self.source = program, source
        self.verdict = Verdict()
        self.chance = random.Random(seed)
        self.seed = seed
        self.left = {}
        self.saved = 0
        self.after_the_end = 0

    def undisturbed(self, case, script):
        """Runs the journey without a kill. Returns its sounds and its duration."""
        with Place(self.program, self.source) as place:
            start = time.monotonic()
            outcome = place.run(script)
            seconds = time.monotonic() - start
            self.verdict.outcome(case + ", undisturbed", outcome, ["done"])
            return place.sounds(), seconds

    def journey(self, number):
        """Runs one journey and kills it at several moments."""
        case = "journey %d of seed %d" % (number, self.seed)
        script = Journey(self.chance).script()
        wanted, seconds = self.undisturbed(case, script)
        for kill in range(KILLS_OF_ONE_JOURNEY):
            self.once("%s, kill %d" % (case, kill), script, wanted, seconds)

    def once(self, case, script, wanted, seconds):
        with Place(self.program, self.source) as place:
            process = place.start(script)
            try:
                process.wait(self.chance.uniform(0, seconds))
                self.after_the_end += 1
            except subprocess.TimeoutExpired:
                process.kill()
            outcome = place.finish(process)
            self.verdict.check(outcome.status in (0, -signal.SIGKILL), "%s: %s" % (case, outcome))
            sounds = self.look(case, place, wanted)
            self.start_again(case, place, sounds)

    def look(self, case, place, wanted):
        sounds = place.sounds()
        saved = {name: content for name, content in sounds.items()
                 if name.startswith("rec_") and name.endswith(".wav")}
        for name, content in saved.items():
            self.verdict.check(is_whole(content) and content == wanted.get(name), "%s: %s is not whole" % (case, name))
        for name in os.listdir(place.folder):
            if name.startswith("reported_"):
                self.verdict.check(name.replace("reported", "rec") in saved, "%s: %s is lost" % (case, name))
        self.saved += len(saved)
        for name in sounds:
            kind = "rec_*.part" if name.endswith(".part") else name
            if name not in saved:
                self.verdict.check(kind == "rec_*.part" or name in TEMPORARY, "%s: left %s" % (case, name))
                self.left[kind] = self.left.get(kind, 0) + 1
        return saved

    def start_again(self, case, place, saved):
        name = "rec_%05d.wav" % len(saved)
        self.verdict.outcome(case + ", later", place.run(LATER % name), ["done"])
        sounds = place.sounds()
        self.verdict.check(is_whole(sounds.pop(name, b"")), "%s: %s of the later start is not whole" % (case, name))
        self.verdict.check(sounds == saved, "%s: after a later start %s" % (case, list(sounds)))


def main(program, source):
    killing = Killing(program, source, int(os.environ.get("MURMELO_TEST_SEED", "1")))
    kills = int(os.environ.get("MURMELO_TEST_KILLS", "12" if sanitized() else "200"))
    for number in range(-(-kills // KILLS_OF_ONE_JOURNEY)):
        killing.journey(number)
    print("%d kills, %d journeys over before it; %d sounds saved before a kill; left over: %s"
          % (kills, killing.after_the_end, killing.saved, killing.left))
    killing.verdict.end()


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
