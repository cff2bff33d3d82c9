# SPDX-License-Identifier: MIT
"""Shared by the fault tests: runs journeys of the headless program in folders of their own, and checks their outcome and
the files that they leave.

A test stops the program at any point of its script by a picture that is written into a pipe: Stop.reached() returns once
the program waits there, and release() lets it go on.
"""
import os
import re
import resource
import select
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
CUT_SHORT = "murmelo-headless: the take is cut short: "
KEPT = re.compile(r"murmelo-headless: ([\d.]+ of [\d.]+) seconds of the take are kept\n")
# Sentences that the host prints while the program goes on.
SENTENCES = re.compile(r'murmelo-headless: (the take is cut short: |[\d.]+ of [\d.]+ seconds of the take are kept|only \d+ KB are free; |the microphone |the speaker |'
                  r'the folder ".*" cannot be made: |the settings ".*" cannot be read and stay as they are: )')
CRASH_STATUS = 97  # of a program that a sanitizer has ended
PROCESSOR_SECONDS = 60  # that one run may use; the longest uses ten
ASLEEP_SECONDS = 60  # that it may sleep without using any processor time
LOOK_SECONDS = 0.2
HEADER_BYTES = 44  # of a sound file, before its samples
TEMPORARY = ("MrmLastRec.wav", "MrmLastProc.wav")

LANGUAGE_KNOWN = "lang=0\n"

# After this a recording offers "Stop": the first buffer, 750 ms, has arrived.
STOP_OFFERED_MS = 800

# From the menu to the choice of the effect, with a take of the given milliseconds, at least STOP_OFFERED_MS. If "Stop"
# is not offered yet, the tap has no effect, the recording goes on for twenty seconds, and the last line fails.
RECORD = """until Options
mic hello.wav
key middle
until Record
key middle
until Recording
wait %d
key middle
until Play 1000
"""


def sanitized():
    """True if the program was built with the sanitizers: then everything takes ten times as long."""
    return os.environ.get("MURMELO_SANITIZED") == "1"


def environment():
    env = dict(os.environ)
    env["ASAN_OPTIONS"] = "exitcode=%d:detect_leaks=1" % CRASH_STATUS
    env["UBSAN_OPTIONS"] = "exitcode=%d:print_stacktrace=1" % CRASH_STATUS
    for name in ("MURMELO_DATA", "MURMELO_HOME"):
        env.pop(name, None)
    return env


def fresh_signals():
    """Resets the signals, which the caller of the tests may ignore. A write beyond a size limit fails as on a full disk."""
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGPIPE):
        signal.signal(number, signal.SIG_DFL)
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)


class Outcome:
    """The outcome of one run."""

    def __init__(self, status, error, seconds_out=False):
        lines = error.splitlines(True)
        self.cut_short = [line for line in lines if line.startswith(CUT_SHORT)]
        self.kept = KEPT.findall(error)
        self.status = status
        self.everything = error
        self.error = "".join(line for line in lines if not SENTENCES.match(line))
        self.seconds_out = seconds_out

    def kind(self):
        """"done": the whole script was run. "message": at some line the application's own message was shown. "sentence": one
        sentence, and an end. Anything else is an error."""
        lines = self.error.splitlines()
        if self.seconds_out:
            return "hang"
        if self.status == 0 and not lines:
            return "done"
        if self.status == 1 and len(lines) == 1 and lines[0].startswith("murmelo-headless: "):
            return "message" if lines[0].endswith('found "MessageAndQuit"') else "sentence"
        return "crash"

    def line(self):
        """Where the script failed."""
        found = re.search(r": line (\d+): ", self.error)
        return int(found.group(1)) if found else 0

    def __str__(self):
        return "%s (status %s) %s" % (self.kind(), self.status, self.error.strip()[:2000])


class Patience:
    """Distinguishes a program that hangs from one that waits on a busy machine, however long.

    One that hangs either uses more processor time than any run needs, or sleeps for ever. Call it again and again while
    the program runs.
    """

    def __init__(self, process, processor_seconds=PROCESSOR_SECONDS, asleep_seconds=ASLEEP_SECONDS):
        self.process = process
        self.processor_seconds, self.asleep_seconds = processor_seconds, asleep_seconds
        self.used = -1.0
        self.asleep_since = None

    def is_over(self):
        try:
            with open("/proc/%d/stat" % self.process.pid) as file:
                fields = file.read().rsplit(")", 1)[1].split()
        except OSError:
            return False  # it has ended
        used = (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
        if fields[0] != "S" or used != self.used:
            self.asleep_since = None  # it works, waits for the processor or the disk, or was stopped
        elif self.asleep_since is None:
            self.asleep_since = time.monotonic()
        self.used = used
        asleep = 0 if self.asleep_since is None else time.monotonic() - self.asleep_since
        return used > self.processor_seconds or asleep > self.asleep_seconds


def ended(process, patience):
    """Output and errors of a program, and whether it ended by itself: one that hangs is killed."""
    while True:
        try:
            return (*process.communicate(timeout=LOOK_SECONDS), True)
        except subprocess.TimeoutExpired:
            if patience.is_over():
                process.kill()
                return (*process.communicate(), False)


class Stop:
    """A point of the script at which the program waits."""

    def __init__(self, path):
        self.path = path + ".png"  # the program takes no other name for a picture
        os.mkfifo(self.path)
        self.reader = None

    def command(self, screen=None):
        """The command that stops at this line of the script, or when that screen next comes."""
        return ("watch %s " % screen if screen else "shot-canvas ") + self.path

    def reached(self, process):
        """Waits until the program is stopped here. False if it has ended before."""
        self.reader = os.open(self.path, os.O_RDONLY | os.O_NONBLOCK)
        patience = Patience(process)
        while not patience.is_over():
            if select.select([self.reader], [], [], 0.01)[0] and self._bytes_wait():
                return True
            if process.poll() is not None:
                return False
        return False

    def _bytes_wait(self):
        try:
            self.first = os.read(self.reader, 1)
        except BlockingIOError:
            return False
        return self.first != b""

    def release(self):
        os.set_blocking(self.reader, True)
        while os.read(self.reader, 1 << 20):
            pass
        os.close(self.reader)
        self.reader = None


class Place:
    """A home, settings and a voice for one journey. Used in a with statement, which removes them at its end."""

    def __init__(self, program, source, settings=LANGUAGE_KNOWN, folder=None):
        self.program = os.path.realpath(program)
        self.source = os.path.realpath(source)
        self.folder = tempfile.mkdtemp(prefix="murmelo_fault_", dir=folder)
        self.stops = 0
        self.data = None
        for name in ("home", "config"):
            os.mkdir(self.path(name))
        os.symlink(self.source + "/res/sample/hello.wav", self.path("hello.wav"))
        if settings is not None:
            self.write("config/settings", settings)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def sound(self, name):
        return self.path("home/Murmelo/" + name)

    def write(self, name, content):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), "wb") as file:
            file.write(content if isinstance(content, bytes) else content.encode())

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def sounds(self):
        """Everything in the sound folder, name to content."""
        folder = self.path("home/Murmelo")
        found = {}
        for name in sorted(os.listdir(folder)) if os.path.isdir(folder) else []:
            with open(os.path.join(folder, name), "rb") as file:
                found[name] = file.read()
        return found

    def stop(self):
        self.stops += 1
        return Stop(self.path("stop%d" % self.stops))

    def start(self, script, prefix=(), preexec=fresh_signals, home="home", config="config", env=None):
        self.write("script", script)
        variables = environment()
        if self.data:
            variables["MURMELO_DATA"] = self.data
        variables.update(env or {})
        command = list(prefix) + [self.program, "--home", home, "--config", config, "script"]
        return subprocess.Popen(command, cwd=self.folder, env=variables, preexec_fn=preexec,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def finish(self, process):
        out, error, by_itself = ended(process, Patience(process))
        if not by_itself:
            return Outcome(process.returncode, error.decode(errors="replace"), True)
        return Outcome(process.returncode, (out + error).decode(errors="replace"))

    def run(self, script, **how):
        return self.finish(self.start(script, **how))


def limit_file_size(process, max_bytes):
    """Limits the size of the program's files, from now on, to max_bytes bytes."""
    resource.prlimit(process.pid, resource.RLIMIT_FSIZE, (max_bytes, resource.RLIM_INFINITY))


def is_whole(sound, rate=8000):
    """True if the bytes are a sound file in the form that the program writes, as long as its header says."""
    if len(sound) < HEADER_BYTES or sound[:4] != b"RIFF" or sound[8:16] != b"WAVEfmt " or sound[36:40] != b"data":
        return False
    riff, data = struct.unpack("<I", sound[4:8])[0], struct.unpack("<I", sound[40:HEADER_BYTES])[0]
    form = struct.unpack("<IHHIIHH", sound[16:36])
    return form == (16, 1, 1, rate, 2 * rate, 2, 16) and data == len(sound) - HEADER_BYTES and riff == len(sound) - 8


class Verdict:
    """Collects the errors, and reports how many checks were made."""

    def __init__(self):
        self.errors = []
        self.looked = 0
        self.kinds = {}

    def check(self, fine, what):
        self.looked += 1
        if not fine:
            self.errors.append(str(what))
            print("WRONG: " + str(what), flush=True)
        return fine

    def outcome(self, case, outcome, allowed):
        self.kinds[outcome.kind()] = self.kinds.get(outcome.kind(), 0) + 1
        return self.check(outcome.kind() in allowed, "%s: wanted %s, found %s" % (case, " or ".join(allowed), outcome))

    def end(self, *more):
        print("looked at %d things; outcomes: %s" % (self.looked, dict(sorted(self.kinds.items()))), *more)
        sys.exit(1 if self.errors else 0)


def skip(reason):
    print("SKIPPED: " + reason, flush=True)
    sys.exit(SKIPPED)


def can_mount():
    """The command that gives a program its own mounts; None if that is not permitted."""
    for prefix in (["unshare", "-m"], ["unshare", "-rm"]):
        test = "d=$(mktemp -d) && mount -t tmpfs -o size=64k none $d && umount $d; s=$?; rmdir $d; exit $s"
        try:
            if subprocess.run(prefix + ["sh", "-c", test], stderr=subprocess.DEVNULL, check=False).returncode == 0:
                return prefix
        except FileNotFoundError:
            return None
    return None
