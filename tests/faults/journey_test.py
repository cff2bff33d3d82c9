# SPDX-License-Identifier: MIT
"""journey_test.py: checks what the fault tests take for a hang.

A program that never stops working hangs, and so does one that sleeps for ever. One that only waits for the processor
does not: here it is stopped for longer than it may sleep, continues, and ends normally.
"""
import signal
import subprocess
import sys
import threading

from journey import Patience, Verdict, ended

ASLEEP_SECONDS = 1
STOPPED_SECONDS = 4

WORKS_ON = "while True: pass"
SLEEPS = "import signal; print('asleep', flush=True); signal.pause()"
WORKS = "[None for _ in range(3 * 10**7)]; print('worked')"


def start(code):
    return subprocess.Popen([sys.executable, "-c", code], stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def main():
    verdict = Verdict()
    for case, code, wanted in (("works on", WORKS_ON, b""), ("sleeps", SLEEPS, b"asleep\n")):
        process = start(code)
        out, _, by_itself = ended(process, Patience(process, 2, ASLEEP_SECONDS))
        verdict.check(not by_itself and process.returncode == -signal.SIGKILL, case + ": is no hang")
        verdict.check(out == wanted, "%s: said %s" % (case, out))
    process = start(WORKS)
    process.send_signal(signal.SIGSTOP)
    threading.Timer(STOPPED_SECONDS, process.send_signal, [signal.SIGCONT]).start()
    out, _, by_itself = ended(process, Patience(process, 60, ASLEEP_SECONDS))
    verdict.check(by_itself and process.returncode == 0 and out == b"worked\n", "a stopped program is taken for a hang")
    verdict.end()


if __name__ == "__main__":
    main()
