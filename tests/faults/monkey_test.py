# SPDX-License-Identifier: MIT
"""monkey_test.py SOURCE: checks that the monkey finds a known fault, and reduces it to the events that cause it.

The program is fake_program.py, which crashes at three commands in a certain order. Outcome: a find whose script has only
these three and crashes again when it is run; the same with any --from; and no find without the fault.
"""
import os
import subprocess
import sys
import tempfile

import monkey
from journey import Verdict

HERE = os.path.dirname(os.path.realpath(__file__))
OPERATIONS = ["File.Read", "File.Write"]
FATAL = ["swipe left", "background", "volume up"]


def run(source, folder, *options):
    command = [sys.executable, "-B", HERE + "/monkey.py", "--finds", folder, *options, HERE + "/fake_program.py", source]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    return done.returncode, done.stdout.decode()


def commands(script):
    with open(script) as file:
        return [line for line in file.read().splitlines() if not line.startswith("#")]


def finds_and_shrinks(verdict, source):
    with tempfile.TemporaryDirectory() as folder:
        status, text = run(source, folder, "--seed", "3", "--events", "2000")
        found = sorted(os.listdir(folder))
        verdict.check(status == 1 and found, "nothing was found: " + text)
        for name in found:
            script = os.path.join(folder, name, "script")
            verdict.check(commands(script) == monkey.PRELUDE + FATAL, "%s holds %s" % (name, commands(script)))
            again = subprocess.run([HERE + "/fake_program.py", script], check=False).returncode
            verdict.check(again < 0, "%s does not die again" % name)
        later = os.path.join(folder, "later")
        run(source, later, "--seed", "3", "--events", "1000", "--from", "1000")
        verdict.check(set(os.listdir(later)) <= set(found), "going on found others: %s" % os.listdir(later))


def is_quiet_otherwise(verdict, source):
    with tempfile.TemporaryDirectory() as folder:
        os.environ["MURMELO_FAKE_FAULT"] = "none"
        status, text = run(source, folder, "--seed", "3", "--events", "1000")
        del os.environ["MURMELO_FAKE_FAULT"]
        verdict.check(status == 0 and not os.listdir(folder), "something was found: " + text)


def shrinks_by_itself(verdict):
    events = list(range(1000))
    for wanted in ([500], [0, 999], [3, 4, 5, 600, 601], list(range(0, 1000, 100))):
        tries = []

        def fails(fewer, wanted=wanted, tries=tries):
            tries.append(1)
            return [event for event in fewer if event in wanted] == wanted

        verdict.check(monkey.shrink(events, fails) == wanted, "shrinking to %s" % wanted)
        verdict.check(len(tries) < 500, "%d tries for %s" % (len(tries), wanted))


def journeys_are_their_own(verdict):
    first = monkey.Monkey(7, 12, OPERATIONS).events()
    verdict.check(first == monkey.Monkey(7, 12, OPERATIONS).events(), "a journey is not the same twice")
    verdict.check(first != monkey.Monkey(7, 13, OPERATIONS).events(), "two journeys are alike")
    verdict.check(first != monkey.Monkey(8, 12, OPERATIONS).events(), "two seeds are alike")
    verdict.check(len(first) == monkey.JOURNEY_EVENTS, "a journey has %d events" % len(first))


def main(source):
    verdict = Verdict()
    shrinks_by_itself(verdict)
    journeys_are_their_own(verdict)
    finds_and_shrinks(verdict, source)
    is_quiet_otherwise(verdict, source)
    verdict.end()


if __name__ == "__main__":
    main(sys.argv[1])
