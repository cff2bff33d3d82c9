# SPDX-License-Identifier: MIT
"""end_signal.py PROGRAM SOURCE: a signal asks for the end, on every screen and in the middle of every kind of work.

Outcome: a clean end with status 128 + the number of the signal and one sentence that names it; only saved sounds are
left, and a later start works.
"""
import os
import signal
import sys

from journey import LANGUAGE_KNOWN, RECORD, Place, Verdict, is_whole

EARLIER = b"a sound of earlier days"
TAKE = RECORD % 1300
PLAY = TAKE + "key middle\nuntil Playing\n"

# Name of the place, the script that leads there, the screen at which it stops (none: at rest), number of sounds saved.
PLACES = [
    ("the first language", None, "expect screen FirstLang\n", None, 0),
    ("the start picture", LANGUAGE_KNOWN, "expect screen Splash\n", None, 0),
    ("the menu", LANGUAGE_KNOWN, "until Options\n", None, 0),
    ("the menu with a take", LANGUAGE_KNOWN, TAKE + "key left\nexpect screen Options\n", None, 0),
    ("the help", LANGUAGE_KNOWN, "until Options\ntap 240 616\n", None, 0),
    ("the languages", LANGUAGE_KNOWN, "until Options\ntap 240 678\n", None, 0),
    ("before the recording", LANGUAGE_KNOWN, "until Options\nkey middle\nuntil Record\n", None, 0),
    ("a recording without a sample", LANGUAGE_KNOWN, "until Options\nkey middle\nkey middle\n", None, 0),
    ("a recording", LANGUAGE_KNOWN, TAKE[:TAKE.rindex("key middle")], None, 0),
    ("the clean-up of a take", LANGUAGE_KNOWN, TAKE[:TAKE.rindex("key middle")], "Process", 0),
    ("the choice of the effect", LANGUAGE_KNOWN, TAKE, None, 0),
    ("a slide", LANGUAGE_KNOWN, TAKE + "swipe left\nwait 50\n", None, 0),
    ("the work of an effect", LANGUAGE_KNOWN, TAKE + "swipe right\n", "Process", 0),
    ("playing", LANGUAGE_KNOWN, PLAY + "wait 300\nexpect screen Playing\n", None, 0),
    ("a saved sound", LANGUAGE_KNOWN, PLAY + "until Play\nsave\nexpect screen Save\n", None, 1),
    ("a message", LANGUAGE_KNOWN, "until Options\nfail AudioIn.Prepare 1\nkey middle\nuntil MessageAndQuit\n", None, 0),
    ("the question about silence", LANGUAGE_KNOWN, "silent on\nuntil Options\n", None, 0),
    ("the background", LANGUAGE_KNOWN, TAKE + "background\n", None, 0),
    ("a dark screen while recording", LANGUAGE_KNOWN, TAKE[:TAKE.rindex("key middle")] + "screen off\n", None, 0),
]


def end_there(verdict, program, source, place_of_end, number):
    name, settings, way, screen, saved = place_of_end
    case = "%s, %s" % (name, signal.Signals(number).name)
    with Place(program, source, settings=settings) as place:
        place.write("home/Murmelo/rec_00007.wav", EARLIER)
        stop = place.stop()
        script = way + stop.command(screen) + "\nkey middle\nwait 100000\n"
        process = place.start(script)
        if not verdict.check(stop.reached(process), case + ": never came there"):
            verdict.outcome(case, place.finish(process), ["done"])
            return
        process.send_signal(number)
        stop.release()
        outcome = place.finish(process)
        lines = outcome.error.splitlines()
        verdict.check(outcome.status == 128 + number and len(lines) == 1
                      and lines[0].endswith("ended by signal %d" % number), "%s: %s" % (case, outcome))
        sounds = place.sounds()
        wanted = ["rec_00007.wav"] + ["rec_00008.wav"] * saved
        verdict.check(list(sounds) == wanted and sounds["rec_00007.wav"] == EARLIER, "%s: left %s" % (case, list(sounds)))
        verdict.check(not saved or is_whole(sounds["rec_00008.wav"]), case + ": the saved sound is not whole")
        home = sorted(os.listdir(place.path("home")))
        verdict.check(home == ["Murmelo"], "%s: the home holds %s" % (case, home))
        config = os.listdir(place.path("config"))
        verdict.check(config == ([] if settings is None else ["settings"]), "%s: settings %s" % (case, config))
        first = "expect screen FirstLang\nkey middle\n" if settings is None else "expect screen Splash\n"
        later = first + PLAY + "until Play\nsave\nexpect file rec_%05d.wav\n" % (8 + saved)
        verdict.outcome(case + ", later", place.run(later), ["done"])


def main(program, source):
    verdict = Verdict()
    for place_of_end in PLACES:
        end_there(verdict, program, source, place_of_end, signal.SIGTERM)
    for number in (signal.SIGINT, signal.SIGHUP):
        end_there(verdict, program, source, PLACES[8], number)
    verdict.end()


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
