# SPDX-License-Identifier: MIT
"""disk_full.py limit|tmpfs PROGRAM SOURCE: the disk is full at every write in turn.

The writes are those of the take, of the cleaned-up take, of an effect's result, of a save, and of the settings: at the
header, in the first buffer, in the middle, at the last byte. Outcomes: a message whose key ends the program, and for the
settings no visible effect. Of a take that does not fit, the part that was written is kept, and one sentence says so; its
effect and its save then give a complete file or a message. A sound that was saved before does not change, no unfinished
file is left, and once there is room again everything works.

limit: a limit on the size of files, which has the effect of a full disk and needs no rights. tmpfs: a small file system.
"""
import os
import subprocess
import sys

from journey import (HEADER_BYTES, LANGUAGE_KNOWN, RECORD, SKIPPED, Place, Verdict, can_mount, is_whole, limit_file_size,
                     sanitized, skip)

TAKE_MS = 1300
TAKE_BYTES = HEADER_BYTES + 32 * TAKE_MS  # 16 kHz, 16 bits
CLEAN_BYTES = HEADER_BYTES + 16 * TAKE_MS  # 8 kHz
PAGE = 4096

EARLIER = b"a sound of earlier days" * 1000
RESULT = "swipe left\nkey middle\nuntil Playing\nuntil Play\n"
SAVE = "save\nexpect screen Save\nexpect file rec_00008.wav\nkey middle\nexpect screen Options\n"


def places(whole):
    """The sizes at which the writing of a file of this size is cut off."""
    cuts = {0, 1, 1000, 4096, 20480, 20524, 24043, 24044, 24045, whole // 2, whole - 2, whole - 1}
    cuts |= {HEADER_BYTES - 1, HEADER_BYTES, HEADER_BYTES + 1}
    return sorted(cut for cut in cuts if cut < whole)


def phases():
    """Name, script up to the point at which the disk becomes full, script after it, size of the file that is written. The
    clean-up begins by itself: for it the disk becomes full when its screen comes."""
    record = RECORD % TAKE_MS
    before_stop = record[:record.rindex("key middle")]
    stop = record[len(before_stop):]
    return [
        ("take", "until Options\n", record + RESULT + SAVE, TAKE_BYTES),
        ("clean-up", before_stop, stop + RESULT + SAVE, CLEAN_BYTES),
        ("result", record, RESULT + SAVE, CLEAN_BYTES),
        ("save", record + RESULT, SAVE, CLEAN_BYTES),
    ]


class ByLimit:
    """No file grows beyond the cut."""

    def __init__(self, verdict, program, source):
        self.verdict, self.program, self.source = verdict, program, source

    def run(self, case, head, tail, fill, screen=None):
        with Place(self.program, self.source) as place:
            place.write("home/Murmelo/rec_00007.wav", EARLIER)
            outcome, script = self.until_full(place, head, tail, fill, screen)
            take = case.startswith("take,")
            if take and 'expected screen "Playing", found "Play"' in str(outcome):
                pass  # not one sample was written: such a sound ends before the script can see that it is played
            elif take and outcome.kind() == "done":
                self.verdict.check(len(outcome.cut_short) == 1, case + ": it was not said once that the take is cut short")
                saved = place.sounds().get("rec_00008.wav", b"")
                self.verdict.outcome(case, outcome, ["done"])
                self.verdict.check(is_whole(saved) and len(saved) < CLEAN_BYTES, case + ": what was saved is not whole")
                told = "%g of %g" % ((len(saved) - HEADER_BYTES) // 1600 / 10, TAKE_MS / 1000)
                self.verdict.check(outcome.kept == [told], case + ": kept %s, not %s" % (outcome.kept, told))
                os.unlink(place.path("home/Murmelo/rec_00008.wav"))
            elif self.verdict.outcome(case, outcome, ["message"]):
                self.verdict.check(take or not outcome.cut_short, case + ": what is no take was called one")
                self.left_in_order(case, place)
                lines = script.splitlines()
                lines = lines[:outcome.line() - 1] + ["expect screen MessageAndQuit", "key middle", "expect ended"]
                place.stops = 0
                os.unlink(place.path("stop1.png"))
                again, _ = self.until_full(place, head, "\n".join(lines[len(head.splitlines()) + 1:]) + "\n", fill, screen)
                self.verdict.outcome(case + ", the message's key", again, ["done"])
            self.left_in_order(case, place)
            with_room = place.run((RECORD % TAKE_MS) + RESULT + SAVE)
            self.verdict.outcome(case + ", with room again", with_room, ["done"])
            self.verdict.check(is_whole(place.sounds()["rec_00008.wav"]), case + ": the later save is not whole")

    def until_full(self, place, head, tail, fill, screen=None):
        stop = place.stop()
        script = head + stop.command(screen) + "\n" + tail
        process = place.start(script)
        if stop.reached(process):
            fill(process, place)
            stop.release()
        outcome = place.finish(process)
        self.empty(place)
        return outcome, script

    def empty(self, place):
        pass

    def left_in_order(self, case, place):
        sounds = place.sounds()
        self.verdict.check(sounds == {"rec_00007.wav": EARLIER}, "%s: left %s" % (case, list(sounds)))


class ByFileSystem(ByLimit):
    """The home is a file system of its own, filled except for a number of pages."""

    def __init__(self, verdict, program, source, folder):
        super().__init__(verdict, program, source)
        self.folder = folder

    @staticmethod
    def fill_up(place, pages_left):
        home = place.path("home")
        facts = os.statvfs(home)
        pages = facts.f_bavail * facts.f_frsize // PAGE
        with open(home + "/ballast", "wb") as file:
            file.write(bytes(PAGE * max(pages - pages_left, 0)))

    def until_full(self, place, head, tail, fill, screen=None):
        home = place.path("home")
        if not os.path.ismount(home):
            subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "none", home], check=True)
            place.write("home/Murmelo/rec_00007.wav", EARLIER)
        return super().until_full(place, head, tail, fill, screen)

    def empty(self, place):
        if os.path.exists(place.path("home/ballast")):
            os.unlink(place.path("home/ballast"))


def settings(verdict, program, source):
    """A language that cannot be stored is used in this run; the stored one does not change."""
    choose = "tap 240 432\nkey middle\nuntil Options\n"
    change = "until Options\ntap 240 678\ntap 240 550\ntap 240 550\nexpect screen Options\n"
    for cut in range(7):
        for name, before, script in (("first", None, choose), ("changed", "lang=3\n", change)):
            with Place(program, source, settings=before) as place:
                stop = place.stop()
                process = place.start(stop.command() + "\n" + script)
                if stop.reached(process):
                    limit_file_size(process, cut)
                    stop.release()
                case = "settings, %s, cut at %d" % (name, cut)
                verdict.outcome(case, place.finish(process), ["done"])
                left = {file: place.read("config/" + file) for file in os.listdir(place.path("config"))}
                wanted = {} if before is None else {"settings": before.encode()}
                verdict.check(left == wanted, "%s: left %s" % (case, left))
                later = "expect screen " + ("FirstLang\n" if before is None else "Splash\n")
                verdict.outcome(case + ", later", place.run(later), ["done"])


def by_limit(program, source):
    verdict = Verdict()
    way = ByLimit(verdict, program, source)
    for phase, head, tail, size in phases():
        for cut in places(size)[::3 if sanitized() else 1]:
            way.run("%s, cut at %d of %d" % (phase, cut, size), head, tail,
                    lambda process, _, cut=cut: limit_file_size(process, cut),
                    "Process" if phase == "clean-up" else None)
    settings(verdict, program, source)
    verdict.end()


def by_file_system(program, source):
    prefix = can_mount()
    if prefix is None:
        skip("a file system cannot be mounted here, neither as root nor with unshare -rm; the sweep by file sizes "
             "runs without")
    inside = prefix + [sys.executable, os.path.realpath(__file__), "inside", program, source]
    sys.exit(subprocess.run(inside, check=False).returncode)


def inside(program, source):
    verdict = Verdict()
    way = ByFileSystem(verdict, program, source, None)
    for phase, head, tail, size in phases():
        if phase == "clean-up":
            continue  # it replaces a take of twice its size: there is always room
        for pages in range(0, (size - 1) // PAGE + 1, 3 if sanitized() else 1):
            way.run("%s, room for %d pages" % (phase, pages), head, tail,
                    lambda _, place, pages=pages: ByFileSystem.fill_up(place, pages))
    verdict.end()


if __name__ == "__main__":
    {"limit": by_limit, "tmpfs": by_file_system, "inside": inside}[sys.argv[1]](sys.argv[2], sys.argv[3])
