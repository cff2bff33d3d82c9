# SPDX-License-Identifier: MIT
"""home_gone.py PROGRAM SOURCE: the home cannot be written, or is removed, before and while the program runs.

Outcomes. Not writable from the start: one sentence, after which the program goes on if it is only the sound folder or
the settings. Later: the message about files or sound, whose key ends the program, or no visible effect if nothing more
is written. Sounds that were saved before do not change as long as the folder exists, and once the home is back
everything works.

Root can write into every folder: if root runs the test, the program is started as the user "nobody".
"""
import os
import shutil
import subprocess
import sys

from journey import RECORD, Place, Verdict, can_mount

EARLIER = b"a sound of earlier days"
TAKE = RECORD % 1300
NOBODY = 65534

MENU = "until Options\n"
READY = MENU + "mic hello.wav\nkey middle\nuntil Record\n"
BEFORE_STOP = TAKE[:TAKE.rindex("key middle")]
PLAYED = TAKE + "key middle\nuntil Playing\nuntil Play\n"
PLAYING = TAKE + "key middle\nuntil Playing\nwait 300\n"
FROM_MENU = "mic hello.wav\nkey middle\nuntil Record\nkey middle\nuntil Recording\nwait 1300\nkey middle\nuntil Play\n"

# Name, the script up to the point where it happens, the script after it, the outcome if the folder becomes read-only
# there, the outcome if it is removed.
CASES = [
    ("start picture", "expect screen Splash\n", MENU + FROM_MENU, "message", "message"),
    ("menu", MENU, FROM_MENU, "message", "message"),
    ("ready to record", READY, "key middle\nuntil Recording\nwait 1300\nkey middle\nuntil Play\n", "done", "message"),
    ("ready, back to the menu", READY, "key right\nuntil Options\nkey right\nexpect ended\n", None, "done"),
    ("recording", BEFORE_STOP, "key middle\nuntil Play\n", "done", "message"),
    ("recording, interrupted", BEFORE_STOP, "background\nforeground\nuntil Options\n", "message", "done"),
    ("choice of the effect", TAKE, "swipe left\nkey middle\nuntil Playing\nuntil Play\n", "message", "message"),
    ("playing, to the end", PLAYING, "until Play\nkey right\nexpect ended\n", "done", "done"),
    ("playing, and again", PLAYING, "until Play\nkey middle\nuntil Playing\n", "done", "message"),
    ("played, another recording", PLAYED, "key left\nuntil Options\n" + FROM_MENU, "message", None),
    ("before a save", PLAYED, "save\nexpect screen Save\n", "message", None),
    ("before the end", PLAYED, "key right\nexpect ended\n", "done", "done"),
]


class Nobody:
    """Runs the program as a user for whom folders can be read-only."""

    def __init__(self, program, source):
        self.program, self.source, self.prefix = program, source, []
        if os.geteuid() == 0:
            if shutil.which("setpriv") is None:
                print("SKIPPED: read-only folders: run as root, and there is no setpriv", flush=True)
                self.prefix = None
                return
            self.prefix = ["setpriv", "--reuid=%d" % NOBODY, "--regid=%d" % NOBODY, "--clear-groups"]

    def place(self):
        place = Place(self.program, self.source)
        place.write("home/Murmelo/rec_00007.wav", EARLIER)
        if self.prefix:
            # The build may lie where only root can look.
            os.unlink(place.path("hello.wav"))
            shutil.copy(self.source + "/res/sample/hello.wav", place.path("hello.wav"))
            shutil.copy(self.program, place.path("program"))
            for folder in ("Res", "framework"):
                shutil.copytree(self.source + "/res/" + folder, place.path("data/" + folder))
            place.program, place.data = place.path("program"), place.path("data")
            self.give(place)
        return place

    def give(self, place):
        if self.prefix:
            subprocess.run(["chown", "-R", "%d:%d" % (NOBODY, NOBODY), place.folder], check=True)

    def start(self, place, script):
        return place.start(script, prefix=self.prefix)


def lock_up(place):
    os.chmod(place.path("home/Murmelo"), 0o555)


def take_away(place):
    shutil.rmtree(place.path("home"))


def half_way(verdict, way, case, before, after, happens, wanted):
    with way.place() as place:
        stop = place.stop()
        way.give(place)
        process = way.start(place, before + stop.command() + "\n" + after)
        if verdict.check(stop.reached(process), case + ": never came there"):
            happens(place)
            stop.release()
        outcome = place.finish(process)
        verdict.outcome(case, outcome, [wanted])
        if outcome.kind() == "message":
            message_ends_it(verdict, way, case, before, after, happens, outcome.line())
        if happens is lock_up:
            os.chmod(place.path("home/Murmelo"), 0o755)
            verdict.check(place.sounds().get("rec_00007.wav") == EARLIER, case + ": an earlier sound is not what it was")
            verdict.check(not [name for name in place.sounds() if name.startswith("rec_") and name != "rec_00007.wav"],
                          "%s: left %s" % (case, list(place.sounds())))
        os.makedirs(place.path("home"), exist_ok=True)
        way.give(place)
        later = PLAYED + "save\nexpect screen Save\nkey middle\n"
        verdict.outcome(case + ", with the home back", place.finish(way.start(place, later)), ["done"])
        left = [name for name in place.sounds() if not name.startswith("rec_")]
        verdict.check(left == [], "%s: later left %s" % (case, left))


def message_ends_it(verdict, way, case, before, after, happens, at_line):
    """The message's key ends the program properly, whatever has happened to the home."""
    with way.place() as place:
        stop = place.stop()
        way.give(place)
        lines = (before + stop.command() + "\n" + after).splitlines()[:at_line - 1]
        lines += ["expect screen MessageAndQuit", "key middle", "expect ended"]
        process = way.start(place, "\n".join(lines) + "\n")
        if stop.reached(process):
            happens(place)
            stop.release()
        verdict.outcome(case + ", the message's key", place.finish(process), ["done"])


def from_the_start(verdict, way):
    for name, folder in (("home", "home"), ("settings", "config")):
        with way.place() as place:
            os.chmod(place.path(folder), 0o555)
            if name == "home":
                outcome = place.finish(way.start(place, "until Options\n"))
                verdict.check(outcome.kind() == "sentence" and "cannot be written" in outcome.error,
                              "read-only home: %s" % outcome)
                os.chmod(place.path(folder), 0o755)
                verdict.check(place.sounds() == {"rec_00007.wav": EARLIER}, "read-only home: not as it was")
            else:
                script = "until Options\ntap 240 678\ntap 240 550\ntap 240 550\nexpect screen Options\n"
                verdict.outcome("read-only settings", place.finish(way.start(place, script)), ["done"])


def expect_sentence(verdict, case, outcome, words):
    """The program goes on, and has printed one sentence."""
    lines = outcome.everything.splitlines()
    verdict.check(outcome.status == 0 and len(lines) == 1 and words in lines[0],
                  "%s: %s: %s" % (case, outcome, lines))


def out_of_reach(verdict, way):
    with way.place() as place:
        os.chmod(place.path("home/Murmelo"), 0o555)
        script = MENU + "mic hello.wav\nkey middle\nexpect screen MessageAndQuit\nkey middle\nexpect ended\n"
        where = 'the sound folder "%s" cannot be written: Permission denied' % os.path.realpath(
            place.path("home/Murmelo"))
        expect_sentence(verdict, "read-only sound folder", place.finish(way.start(place, script)), where)
    with way.place() as place:
        os.chmod(place.path("config/settings"), 0)
        script = "tap 240 432\nkey middle\nexpect screen Splash\n"
        expect_sentence(verdict, "unreadable settings", place.finish(way.start(place, script)),
             'config/settings" cannot be read and stay as they are: Permission denied')
        os.chmod(place.path("config/settings"), 0o644)
        verdict.check(os.listdir(place.path("config")) == ["settings"] and place.read("config/settings") == b"lang=0\n",
                      "unreadable settings: not as they were")


def read_only_mount(verdict, program, source):
    prefix = can_mount()
    if prefix is None:
        print("SKIPPED: a read-only mount: mounting is not permitted here", flush=True)
        return
    with Place(program, source) as place:
        place.write("home/Murmelo/rec_00007.wav", EARLIER)
        mount = 'mount --bind "$1" "$1" && mount -o remount,ro,bind "$1" && shift && exec "$@"'
        outcome = place.run("until Options\n", prefix=prefix + ["sh", "-c", mount, "sh", place.path("home")])
        verdict.check(outcome.kind() == "sentence" and "cannot be written" in outcome.error,
                      "read-only mount: %s" % outcome)


def main(program, source):
    verdict = Verdict()
    way = Nobody(os.path.realpath(program), os.path.realpath(source))
    if way.prefix is not None:
        from_the_start(verdict, way)
        out_of_reach(verdict, way)
    for name, before, after, read_only, removed in CASES:
        for how, happens, wanted in (("read-only", lock_up, read_only), ("removed", take_away, removed)):
            if wanted is None or (happens is lock_up and way.prefix is None):
                continue
            case = "%s, %s" % (how, name)
            half_way(verdict, way, case, before, after, happens, wanted)
    read_only_mount(verdict, program, source)
    verdict.end()


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
