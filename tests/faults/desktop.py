# SPDX-License-Identifier: MIT
"""desktop.py end|clock SHIM PROGRAM SOURCE: the program in its window, run by with-desktop.

end: SIGTERM on one screen after the other. Outcome: status 0, only saved sounds are left, and each sound that was
reported as saved is complete.
clock: the time of day jumps all the time. Outcome: recording, playing and saving work as usual, a clip is not shorter or
longer, and the program sleeps while nothing moves.

Each key waits for the screen before it: the window's soft keys are those that murmelo-headless shows on that screen.
"""
import os
import signal
import struct
import subprocess
import sys
import tempfile
import time

from journey import HEADER_BYTES, Patience, Verdict, ended, environment, is_whole

PATIENCE_SECONDS = 60  # for things that take a moment, on a busy machine
SLEEP_SECONDS = 2  # without any processor time: then the program sleeps
TAKE_BYTES = HEADER_BYTES + 3 * 32000  # long enough to be seen while it plays
SOFT_KEYS = ["-crop", "480x72+0+728", "+repage", "-depth", "8"]

# Makes a picture of each screen, by which the screens are recognised.
PICTURES = """expect screen Splash
shot Splash.png
until Options
shot Options.png
mic hello.wav
key middle
until Record
shot Record.png
key middle
wait 1000
shot Recording.png
key middle
until Play
wait 1000
shot Play.png
key middle
until Playing
shot Playing.png
until Play
wait 1000
save
until Save
shot Save.png
"""

# The keys from the start picture to the saved sound, and the screen that each leads to.
KEYS = [("Return", "Options"), ("Return", "Record"), ("Return", "Recording"), ("Return", "Play"), ("Return", "Playing")]
SAVE = ("ctrl+s", "Save")
# Screen at which the program is ended, and the keys that lead there.
SCREENS = [("start picture", []), ("menu", KEYS[:1]), ("record", KEYS[:2]), ("recording", KEYS[:3]),
           ("choice of the effect", KEYS[:4]), ("playing", KEYS), ("saved", KEYS[:4] + [SAVE])]


def until(happened, seconds=PATIENCE_SECONDS):
    """Calls happened() until it returns something true, and returns that; False if it never does."""
    end = time.monotonic() + seconds
    while True:
        result = happened()
        if result or time.monotonic() > end:
            return result
        time.sleep(0.02)


def soft_keys(picture_or_window):
    """The pixels of the soft keys, of a file or (with import's options) of a window."""
    return subprocess.run([*picture_or_window, *SOFT_KEYS, "rgb:-"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          check=False).stdout


def pictures(headless, source):
    """Each screen's name, to the pixels of its soft keys."""
    with tempfile.TemporaryDirectory(prefix="murmelo_fault_") as folder:
        os.mkdir(folder + "/config")
        with open(folder + "/config/settings", "w") as file:
            file.write("lang=0\n")
        os.symlink(source + "/res/sample/hello.wav", folder + "/hello.wav")
        subprocess.run([headless, "--home", "home", "--config", "config", "-"], input=PICTURES.encode(), cwd=folder,
                       env=environment(), check=True)
        found = {name[:-len(".png")]: soft_keys(["convert", os.path.join(folder, name)])
                 for name in sorted(os.listdir(folder)) if name.endswith(".png")}
    different = set(found.values()) - {b""}
    if len(different) != len(found) - 1:  # "Stop" stands on two screens
        print("the screens %s cannot be told apart" % sorted(found))
        sys.exit(1)
    return found


class Window:
    """One run of the program."""

    def __init__(self, program, source, screens, env=None):
        self.folder = tempfile.TemporaryDirectory(prefix="murmelo_fault_")
        self.screens = screens
        os.makedirs(self.path("config"))
        with open(self.path("config/settings"), "w") as file:
            file.write("lang=0\n")
        variables = environment()
        variables.update(env or {})
        # One window at a time: with two, only a window manager would decide which one gets the keys.
        self.process = subprocess.Popen(
            [program, "--home", self.path("home"), "--config", self.path("config"), "--microphone",
             source + "/res/sample/hello.wav"], env=variables, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.window = until(self.find)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def find(self):
        found = subprocess.run(["xdotool", "search", "--name", "Murmelo$"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, check=False).stdout.split()
        return found[-1].decode() if found else None

    def shows(self, screen):
        return soft_keys(["import", "-silent", "-window", self.window]) == self.screens[screen]

    def sound(self, name):
        try:
            with open(self.path("home/Murmelo/" + name), "rb") as file:
                return file.read()
        except OSError:
            return b""

    def keys(self, keys):
        """Presses each key, and waits for the screen that it leads to. Returns what is wrong, or an empty text."""
        for name, screen in keys:
            subprocess.run(["xdotool", "windowfocus", "--sync", self.window, "key", name], check=False)
            if not until(lambda screen=screen: self.shows(screen)):
                return "the key %s does not lead to %s" % (name, screen)
            if screen == "Recording" and not until(lambda: len(self.sound("MrmLastRec.wav")) >= TAKE_BYTES):
                return "the recording does not grow"
        return ""

    def end(self):
        """Ends the program. Returns its status, its output and its errors."""
        self.process.send_signal(signal.SIGTERM)
        out, error, by_itself = ended(self.process, Patience(self.process, asleep_seconds=PATIENCE_SECONDS))
        return self.process.returncode if by_itself else "hang", out.decode(), error.decode()

    def left(self):
        folder = self.path("home/Murmelo")
        return sorted(os.listdir(folder)) if os.path.isdir(folder) else []


def check_end(verdict, case, window, saved):
    status, out, error = window.end()
    verdict.check(status == 0 and error == "", "%s: status %s, %s" % (case, status, error))
    wanted = ["rec_00000.wav"] if saved else []
    verdict.check(window.left() == wanted, "%s: left %s" % (case, window.left()))
    verdict.check(out.splitlines() == [os.path.realpath(window.path("home/Murmelo/" + name)) for name in wanted],
                  "%s: told %s" % (case, out))
    verdict.check(not saved or is_whole(window.sound("rec_00000.wav")), case + ": the saved sound is not whole")


def opens(verdict, case, window):
    if verdict.check(window.window and until(lambda: window.shows("Splash")), case + ": no start picture"):
        return True
    window.process.kill()
    window.process.communicate()
    return False


def end(verdict, program, source, screens, _):
    for screen, keys in SCREENS:
        window = Window(program, source, screens)
        if opens(verdict, screen, window):
            error = window.keys(keys)
            verdict.check(error == "", "%s: %s" % (screen, error))
            check_end(verdict, screen, window, screen == "saved")


def processor_seconds(process):
    with open("/proc/%d/stat" % process.pid) as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def sleeps(process):
    """True if the program used hardly any processor time for a while."""
    used = processor_seconds(process)
    time.sleep(SLEEP_SECONDS)
    return processor_seconds(process) - used < 0.1 * SLEEP_SECONDS


def clock(verdict, program, source, screens, shim):
    jumping = {"LD_PRELOAD": os.path.realpath(shim), "ASAN_OPTIONS": "verify_asan_link_order=0:exitcode=97"}
    window = Window(program, source, screens, jumping)
    if not verdict.check(window.window, "no window"):
        return
    # The start picture yields by its own timer.
    verdict.check(until(lambda: window.shows("Options")), "the start picture stays")
    verdict.check(until(lambda: sleeps(window.process)), "the menu does not sleep")
    error = window.keys(KEYS[1:4])
    verdict.check(error == "", error)
    start = time.monotonic()
    error = window.keys(KEYS[4:])
    verdict.check(error == "", error)
    take = window.sound("MrmLastRec.wav")
    verdict.check(is_whole(take) and struct.unpack("<I", take[24:28])[0] == 8000, "the take is not cleaned up")
    seconds = (len(take) - HEADER_BYTES) / 16000
    verdict.check(2.9 < seconds <= 20.1, "a take of %.1f s" % seconds)
    verdict.check(until(lambda: window.shows("Play"), PATIENCE_SECONDS + seconds), "the clip does not end")
    verdict.check(time.monotonic() - start > seconds, "a clip of %.1f s ends after %.1f s"
                  % (seconds, time.monotonic() - start))
    verdict.check(until(lambda: sleeps(window.process)), "the choice of the effect does not sleep")
    error = window.keys([SAVE])
    verdict.check(error == "", error)
    check_end(verdict, "with a clock that jumps", window, True)


def main(mode, shim, program, source):
    verdict = Verdict()
    program, source = os.path.realpath(program), os.path.realpath(source)
    screens = pictures(os.path.join(os.path.dirname(program), "murmelo-headless"), source)
    {"end": end, "clock": clock}[mode](verdict, program, source, screens, shim)
    verdict.end()


if __name__ == "__main__":
    main(*sys.argv[1:])
