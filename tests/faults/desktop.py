"""desktop.py end|clock SHIM PROGRAM SOURCE: the program in its window, run by with-desktop.

end: SIGTERM on one screen after the other. Outcome: status 0 within seconds, nothing left but what was saved, and what
was told as saved is whole.
clock: the time of day jumps all the while. Outcome: the journey of recording, playing and saving takes its time and no
more, and the program sleeps where nothing moves.
"""
import os
import signal
import struct
import subprocess
import sys
import tempfile
import time

from journey import Verdict, environment, is_whole

# Screen, the keys from the start picture on, and after each what has to be seen in the sound folder (a name, and the
# least size) or how long to wait.
TO_MENU = [("Return", 0.4)]
TO_RECORD = TO_MENU + [("Return", ("MrmLastRec.wav", 44))]
TO_RECORDING = TO_RECORD + [("Return", ("MrmLastRec.wav", 44 + 24000))]
TO_PLAY = TO_RECORDING + [("Return", "cleaned up")]
TO_PLAYING = TO_PLAY + [("Return", ("MrmLastProc.wav", 45))]
TO_SAVE = TO_PLAY + [("ctrl+s", ("rec_00000.wav", 45))]
SCREENS = [("start picture", []), ("menu", TO_MENU), ("record", TO_RECORD), ("recording", TO_RECORDING),
           ("choice of the effect", TO_PLAY), ("playing", TO_PLAYING), ("saved", TO_SAVE)]


class Window:
    """One run of the program."""

    def __init__(self, program, source, env=None):
        self.folder = tempfile.TemporaryDirectory(prefix="murmelo_fault_")
        os.makedirs(self.path("config"))
        with open(self.path("config/settings"), "w") as file:
            file.write("lang=0\n")
        variables = environment(source)
        variables.update(env or {})
        # Two windows side by side would need a window manager to tell whose keys are whose: one at a time.
        self.process = subprocess.Popen(
            [program, "--home", self.path("home"), "--config", self.path("config"), "--microphone",
             source + "/res/sample/hello.wav"], env=variables, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.window = self.until(self.find)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def find(self):
        found = subprocess.run(["xdotool", "search", "--name", "^Murmelo$"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, check=False).stdout.split()
        return found[-1].decode() if found else None

    def until(self, happened, seconds=20):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            answer = happened()
            if answer:
                return answer
            time.sleep(0.05)
        return None

    def sound(self, name):
        try:
            with open(self.path("home/Murmelo/" + name), "rb") as file:
                return file.read()
        except OSError:
            return b""

    def cleaned_up(self):
        take = self.sound("MrmLastRec.wav")
        return is_whole(take) and struct.unpack("<I", take[24:28])[0] == 8000

    def key(self, name, then):
        subprocess.run(["xdotool", "windowfocus", self.window, "key", name], check=False)
        if then == "cleaned up":
            return self.until(self.cleaned_up)
        if isinstance(then, tuple):
            return self.until(lambda: len(self.sound(then[0])) >= then[1])
        time.sleep(then)
        return True

    def keys(self, keys):
        time.sleep(0.3)
        for name, then in keys:
            if not self.key(name, then):
                return "nothing came of the key " + name
            time.sleep(0.3)
        return ""

    def end(self):
        """Status, output, complaint, seconds."""
        start = time.monotonic()
        self.process.send_signal(signal.SIGTERM)
        try:
            out, complaint = self.process.communicate(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            out, complaint = self.process.communicate()
            return "hang", out.decode(), complaint.decode(), 10
        return self.process.returncode, out.decode(), complaint.decode(), time.monotonic() - start

    def left(self):
        folder = self.path("home/Murmelo")
        return sorted(os.listdir(folder)) if os.path.isdir(folder) else []


def check_end(verdict, case, window, saved):
    status, out, complaint, seconds = window.end()
    verdict.check(status == 0 and complaint == "", "%s: status %s, %s" % (case, status, complaint))
    verdict.check(seconds < 5, "%s: ended after %.1f s" % (case, seconds))
    wanted = ["rec_00000.wav"] if saved else []
    verdict.check(window.left() == wanted, "%s: left %s" % (case, window.left()))
    verdict.check(out.splitlines() == [os.path.realpath(window.path("home/Murmelo/" + name)) for name in wanted],
                  "%s: told %s" % (case, out))
    verdict.check(not saved or is_whole(window.sound("rec_00000.wav")), case + ": the saved sound is not whole")


def end(verdict, program, source, _):
    for screen, keys in SCREENS:
        window = Window(program, source)
        if not verdict.check(window.window, screen + ": no window"):
            window.process.kill()
            continue
        wrong = window.keys(keys)
        verdict.check(wrong == "", "%s: %s" % (screen, wrong))
        check_end(verdict, screen, window, screen == "saved")


def processor_seconds(process):
    with open("/proc/%d/stat" % process.pid) as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def clock(verdict, program, source, shim):
    jumping = {"LD_PRELOAD": os.path.realpath(shim), "ASAN_OPTIONS": "verify_asan_link_order=0:exitcode=97"}
    window = Window(program, source, jumping)
    verdict.check(window.window, "no window")
    # The start picture yields by its own timer.
    time.sleep(3.5)
    used = processor_seconds(window.process)
    time.sleep(2)
    verdict.check(processor_seconds(window.process) - used < 0.5, "the menu does not sleep")
    start = time.monotonic()
    wrong = window.keys(TO_PLAYING[1:])
    verdict.check(wrong == "", wrong)
    verdict.check(time.monotonic() - start < 20, "the journey took %.1f s" % (time.monotonic() - start))
    take = len(window.sound("MrmLastRec.wav"))
    verdict.check(44 + 16 * 700 < take < 44 + 16 * 10000, "a take of %d bytes" % take)
    time.sleep(take / 16000 + 1)  # until the clip has ended
    used = processor_seconds(window.process)
    time.sleep(2)
    verdict.check(processor_seconds(window.process) - used < 0.5, "the clip has not ended")
    verdict.check(window.key("ctrl+s", ("rec_00000.wav", 45)), "nothing was saved")
    time.sleep(0.3)
    check_end(verdict, "with a clock that jumps", window, True)


if __name__ == "__main__":
    seen = Verdict()
    {"end": end, "clock": clock}[sys.argv[1]](seen, os.path.realpath(sys.argv[3]), os.path.realpath(sys.argv[4]), sys.argv[2])
    seen.end()
