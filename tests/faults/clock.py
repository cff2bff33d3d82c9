# SPDX-License-Identifier: MIT
"""clock.py SHIM PROGRAM SOURCE: the time of day jumps while the program runs, a day forward and an hour back.

Outcome: no visible effect. The same journey saves the same sounds, bit for bit, and takes no more processor time.
"""
import os
import resource
import sys

from journey import Place, Verdict

JOURNEY = """until Options
mic hello.wav
key middle
until Record
key middle
until Recording
wait 25000
expect screen Play
swipe left
wait 1000
save
until Save
key middle
key right
until Play
swipe left
wait 1000
key middle
until Playing
until Play
save
until Save
"""


def processor_seconds():
    """Processor time of the programs that have ended. Unlike the time of day, it does not depend on a busy machine."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def run(verdict, program, source, env, case):
    with Place(program, source) as place:
        before = processor_seconds()
        verdict.outcome(case, place.run(JOURNEY, env=env), ["done"])
        return place.sounds(), processor_seconds() - before


def main(shim, program, source):
    verdict = Verdict()
    look = "import time; print(len({int(time.time()) // 3600 for _ in range(9)}))"
    with os.popen("LD_PRELOAD=%s %s -c '%s'" % (os.path.realpath(shim), sys.executable, look)) as shown:
        verdict.check(shown.read().strip() == "2", "the clock does not jump")
    wanted, seconds = run(verdict, program, source, None, "with a steady clock")
    jumping = {"LD_PRELOAD": os.path.realpath(shim), "ASAN_OPTIONS": "verify_asan_link_order=0:exitcode=97"}
    sounds, taken = run(verdict, program, source, jumping, "with a clock that jumps")
    verdict.check(sorted(wanted) == ["rec_00000.wav", "rec_00001.wav"], "saved %s" % sorted(wanted))
    verdict.check(sounds == wanted, "the sounds differ")
    verdict.check(taken < 5 * seconds + 5, "took %.1f s of processor time instead of %.1f s" % (taken, seconds))
    verdict.end()


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], sys.argv[3])
