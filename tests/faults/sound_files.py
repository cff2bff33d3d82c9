# SPDX-License-Identifier: MIT
"""sound_files.py PROGRAM SOURCE: the file of the take or of the result is replaced between recording and playing.

Outcomes: the message about files or sound, or the program goes on with what the file still has. There must be no crash or
hang, and a sound that was saved before does not change. A later start works and removes the rest.
"""
import os
import random
import shutil
import struct
import sys

from journey import HEADER_BYTES, RECORD, STOP_OFFERED_MS, Place, Verdict, sanitized

EARLIER = b"a sound of earlier days"
TAKE = RECORD % STOP_OFFERED_MS
PLAYED = TAKE + "key middle\nuntil Playing\nuntil Play\n"

# Name, script up to the replacement, which file, script after it.
POINTS = [
    ("take before an effect", TAKE, "MrmLastRec.wav", "swipe right\nkey middle\nuntil Play 9000\nkey right\nexpect ended\n"),
    ("take before another", PLAYED, "MrmLastRec.wav", "swipe left\nwait 900\nkey middle\nuntil Play\nwait 9\n"),
    ("take before a save", TAKE, "MrmLastRec.wav", "swipe left\nsave\nwait 5000\nkey middle\nexpect screen Options\n"),
    ("take before a recording", TAKE, "MrmLastRec.wav", "key left\nkey middle\nuntil Record\n"),
    ("result before playing", PLAYED, "MrmLastProc.wav", "key middle\nuntil Playing\n"),
    ("result while playing", PLAYED + "key middle\nuntil Playing\n", "MrmLastProc.wav", "until Play\n"),
    ("result before a save", PLAYED, "MrmLastProc.wav", "save\nuntil Save\n"),
]


def header(samples, rate=8000):
    return (b"RIFF" + struct.pack("<I", (36 + 2 * samples) & 0xFFFFFFFF) + b"WAVEfmt "
            + struct.pack("<IHHIIHH", 16, 1, 1, rate, 2 * rate, 2, 16) + b"data"
            + struct.pack("<I", (2 * samples) & 0xFFFFFFFF))


def sparse(path, head, size):
    with open(path, "wb") as file:
        file.write(head)
        file.truncate(size)


def content(path, content):
    with open(path, "wb") as file:
        file.write(content)


def replacements():
    """The replacements: a name, and a function that puts it in place of the file."""
    noise = random.Random(3)
    random_bytes = bytes(noise.randrange(256) for _ in range(10000))
    yield "nothing", lambda path: os.unlink(path)
    yield "an empty file", lambda path: content(path, b"")
    yield "half a header", lambda path: os.truncate(path, HEADER_BYTES // 2)
    yield "a header", lambda path: os.truncate(path, HEADER_BYTES)
    yield "half of it", lambda path: os.truncate(path, 5001)
    yield "random bytes", lambda path: content(path, random_bytes)
    yield "a header and random bytes", lambda path: content(path, header(4000) + random_bytes)
    yield "a length beyond the end", lambda path: content(path, header(0x3FFFFFFF) + random_bytes)
    yield "a negative length", lambda path: content(path, header(0x7FFFFFF0) + random_bytes)
    yield "another rate", lambda path: content(path, header(4000, 44100) + random_bytes)
    yield "the other rate", lambda path: content(path, header(4000, 16000) + random_bytes)
    yield "a folder", replace_by_folder
    yield "a pipe", replace_by_pipe
    yield "a link elsewhere", lambda path: (os.unlink(path), os.symlink("/etc/passwd", path))


NO_FILES = ("a folder", "a pipe", "a link elsewhere")


def huge_replacements():
    """Files that are larger than the program's arrays; each only for the work that reads it as a whole."""
    if not sanitized():
        yield "five minutes", lambda path: sparse(path, header(2400000), HEADER_BYTES + 4800000)
        yield "half an hour", lambda path: sparse(path, header(16777000), HEADER_BYTES + 33554000)
        yield "an hour", lambda path: sparse(path, header(28800000), HEADER_BYTES + 57600000)
        yield "three gigabytes", lambda path: sparse(path, header(1600000000), HEADER_BYTES + 3200000000)


def replace_by_folder(path):
    os.unlink(path)
    os.mkdir(path)


def replace_by_pipe(path):
    os.unlink(path)
    os.mkfifo(path)


def restore(path):
    """Removes what the program never removes: a folder, and a link that leads out of the home."""
    if os.path.islink(path):
        os.unlink(path)
    elif os.path.isdir(path):
        shutil.rmtree(path)


def journey(verdict, program, source, point, replacement):
    name, way, file, then = point
    what, put = replacement
    case = "%s: %s" % (name, what)
    with Place(program, source) as place:
        place.write("home/Murmelo/rec_00007.wav", EARLIER)
        stop = place.stop()
        process = place.start(way + stop.command() + "\n" + then)
        if verdict.check(stop.reached(process), case + ": never came there"):
            put(place.sound(file))
            stop.release()
        outcome = place.finish(process)
        # A sound without samples has ended before the script can see it, so that the script finds another screen.
        # Without a take there is nothing to save.
        fine = outcome.kind() in ("done", "message") or (outcome.kind() == "sentence" and (
            "expected screen" in outcome.error or "nothing can be saved" in outcome.error))
        verdict.kinds[outcome.kind()] = verdict.kinds.get(outcome.kind(), 0) + 1
        verdict.check(fine, "%s: %s" % (case, outcome))
        restore(place.sound(file))
        verdict.check(place.read("home/Murmelo/rec_00007.wav") == EARLIER, case + ": an earlier sound is not what it was")
        # A saved copy of a damaged result is damaged too; the next start does not use it.
        later = PLAYED + "save\nuntil Save\nkey middle\n"
        verdict.outcome(case + ", later", place.run(later), ["done"])
        # Something that is not a file was moved aside if its name was needed.
        wanted = {file + ".aside-1"} if what in NO_FILES else set()
        left = {entry for entry in os.listdir(place.path("home/Murmelo")) if not entry.startswith("rec_")}
        verdict.check(left <= wanted, "%s: later left %s" % (case, sorted(left)))


def main(program, source):
    verdict = Verdict()
    some = 6 if sanitized() else 1  # with sanitizers, each replacement at only one or two points
    for number, point in enumerate(POINTS):
        for replacement in list(replacements())[number % some::some]:
            journey(verdict, program, source, point, replacement)
    for point in (POINTS[0], POINTS[4]):
        for replacement in huge_replacements():
            journey(verdict, program, source, point, replacement)
    verdict.end()


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
