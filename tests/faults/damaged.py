# SPDX-License-Identifier: MIT
"""damaged.py settings|resources PROGRAM SOURCE: files that the program reads are damaged or missing when it starts.

settings. Outcome: unreadable settings are set aside and the program asks for the language; choosing it works and, if
the folder can be written, is stored. resources: each font in turn, and the pictures, four at a time. Outcome: a journey
through every screen works, with something missing in the picture; without the folder of the pictures one sentence.
"""
import os
import random
import shutil
import sys

from journey import RECORD, STOP_OFFERED_MS, Place, Verdict, sanitized

JOURNEY = """key middle
until Options
tap 240 616
key middle
tap 240 678
tap 240 430
key right
expect screen Options
mic hello.wav
tap 240 554
until Record
key middle
until Recording
wait 1300
shot recording.png
key middle
until Play
swipe left
wait 1000
tap 30 210
wait 1000
swipe left
wait 1000
key middle
until Playing
wait 200
until Play
save
until Save
key middle
until Options
background
silent on
foreground
key left
fail File.Remove 1
tap 240 554
until MessageAndQuit
shot message.png
key middle
expect ended
"""


# Without its font the menu has no rows to touch; its keys work.
BY_KEYS = JOURNEY.replace("tap 240 616\nkey middle\ntap 240 678\ntap 240 430\nkey right\n", "").replace(
    "tap 240 554\n", "key middle\n")
MENU_FONT = "Res/bmf15.bmf"
AT_ONCE = 4


def files_below(folder):
    return sorted(os.path.join(path, name) for path, _, names in os.walk(folder) for name in names)


def damages(path):
    """The kinds of damage: a name, and a function that does it to a copy of the file."""
    with open(path, "rb") as file:
        whole = file.read()
    noise = random.Random(os.path.basename(path))

    def put(content):
        def act(target):
            with open(target, "wb") as file:
                file.write(content)
        return act

    def flipped(count):
        content = bytearray(whole)
        for _ in range(count):
            content[noise.randrange(len(content))] = noise.randrange(256)
        return bytes(content)

    yield "removed", os.unlink
    yield "random bytes", put(noise.randbytes(len(whole)))
    yield "cut in half", put(whole[:len(whole) // 2])
    yield "flipped bytes", put(flipped(12))
    if sanitized():
        return
    yield "one flipped byte", put(flipped(1))
    yield "a folder", lambda target: (os.unlink(target), os.mkdir(target))
    for size in (0, 20, 57):
        yield "cut at %d" % size, put(whole[:size])
    yield "the last 13 bytes cut off", put(whole[:-13])


def journey_with(verdict, program, source, what, files):
    """Runs a journey with this damage; files is a dictionary from a file's name to the function that damages it."""
    with Place(program, source, settings=None) as place:
        place.data = place.path("data")
        for folder in ("Res", "framework"):
            shutil.copytree(source + "/res/" + folder, place.data + "/" + folder, copy_function=shutil.copyfile)
        for name, act in files.items():
            act(place.data + "/" + name)
        case = "%s, %s" % (" and ".join(files), what)
        verdict.outcome(case, place.run(BY_KEYS if MENU_FONT in files else JOURNEY), ["done"])
        verdict.check(list(place.sounds()) == ["rec_00000.wav"], "%s: left %s" % (case, list(place.sounds())))


def groups(names):
    """Groups of files that are damaged together: each font alone, and the pictures in fours. The names of a group are far
    apart in the alphabet, so that they seldom belong to one screen and do not hide each other's effect."""
    pictures = [name for name in names if name.endswith(".png")]
    step = -(-len(pictures) // AT_ONCE)
    return [[name] for name in names if name not in pictures] + [pictures[i::step] for i in range(step)]


def resources(program, source):
    verdict = Verdict()
    originals = files_below(source + "/res/Res") + files_below(source + "/res/framework")
    names = [os.path.relpath(original, source + "/res") for original in originals]
    acts = {name: dict(damages(original)) for name, original in zip(names, originals)}
    for group in groups(names):
        kinds = dict.fromkeys(what for name in group for what in acts[name])  # each once, in their order
        for what in kinds:
            journey_with(verdict, program, source, what,
                         {name: acts[name][what] for name in group if what in acts[name]})
    missing_folders(verdict, program, source)
    verdict.end()


def missing_folders(verdict, program, source):
    for missing in ("framework", "Res"):
        with Place(program, source, settings=None) as place:
            place.data = place.path("data")
            for folder in {"Res", "framework"} - {missing}:
                shutil.copytree(source + "/res/" + folder, place.data + "/" + folder)
            shutil.copy(program, place.path("alone"))
            place.program = place.path("alone")
            wanted = "sentence" if missing == "Res" else "done"
            verdict.outcome("no folder " + missing, place.run(JOURNEY), [wanted])
            if missing == "Res":
                os.mkdir(place.data + "/Res")
                verdict.outcome("an empty folder Res", place.run(BY_KEYS), ["done"])


OUT_OF_REACH = ("a folder", "a folder with something in it", "a pipe", "a link to itself", "an endless device")


def settings_cases():
    """Name of the case, what is in place of the settings (bytes, or a function), and the first screen."""
    asks, knows = "FirstLang", "Splash"
    for text in ("", "l", "lang", "lang=", "=", "=1\n", "lang 1\n", "lang=-1\n", "lang=5\n", "lang=99999999999999999999\n",
                 "lang=1x\n", "lang= 1\n", "lang=0x1\n", "lang=1\nrubbish\n", "\0", "lang=1\0\n", "l\xe4ng=1\n"):
        yield repr(text), text.encode(), asks
    for text in ("lang=1", "lang=4\n", "# a remark\n\nlang=2\r\n", "other=x\nlang=3\n", "lang=7\nlang=0\n"):
        yield repr(text), text.encode(), knows
    yield "a mebibyte", b"lang=1\n" + b"x" * (1 << 20), asks
    yield "a mebibyte of lines", b"lang=1\n" * (1 << 17), asks
    noise = random.Random(4)
    for i in range(20):
        yield "random bytes %d" % i, noise.randbytes(noise.randrange(1, 3000)), asks
    yield "a folder", lambda path: os.mkdir(path), asks
    yield "a folder with something in it", lambda path: os.makedirs(path + "/more"), asks
    yield "a pipe", lambda path: os.mkfifo(path), asks
    yield "a pipe at the new file's place", lambda path: os.mkfifo(path + ".new"), asks
    yield "a link to itself", lambda path: os.symlink("settings", path), asks
    yield "an endless device", lambda path: os.symlink("/dev/zero", path), asks
    yield "a link to nothing", lambda path: os.symlink("nowhere", path), asks


def settings(program, source):
    verdict = Verdict()
    for case, what, first in settings_cases():
        with Place(program, source, settings=None) as place:
            path = place.path("config/settings")
            if isinstance(what, bytes):
                place.write("config/settings", what)
            else:
                what(path)
            verdict.outcome(case, place.run("expect screen %s\n" % first), ["done"])
            later = "expect screen %s\nkey middle\nuntil Options\n" % first + (RECORD % STOP_OFFERED_MS)[len("until Options\n"):]
            verdict.outcome(case + ", and a journey", place.run(later), ["done"])
            # Chosen or kept: the language is there the next time, unless the settings are out of reach and stay so.
            next_time = "FirstLang" if case in OUT_OF_REACH else "Splash"
            verdict.outcome(case + ", later", place.run("expect screen %s\n" % next_time), ["done"])
    # If something other than a file has the name, it is moved aside, or another name is used.
    for case, block in (("settings.new is a folder", "new"), ("settings.damaged is a folder", "damaged")):
        with Place(program, source, settings="rubbish") as place:
            os.makedirs(place.path("config/settings.%s/more" % block))
            verdict.outcome(case, place.run("expect screen FirstLang\nkey middle\nuntil Options\n"), ["done"])
            verdict.outcome(case + ", later", place.run("expect screen Splash\n"), ["done"])
    verdict.end()


if __name__ == "__main__":
    {"settings": settings, "resources": resources}[sys.argv[1]](os.path.realpath(sys.argv[2]),
                                                               os.path.realpath(sys.argv[3]))
