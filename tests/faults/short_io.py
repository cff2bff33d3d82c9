# SPDX-License-Identifier: MIT
"""short_io.py SHIM TOOL PROGRAM SOURCE: the system writes and reads less at a time than it was asked to.

Outcome: no visible effect. A journey saves the same sounds and the tool writes the same file, bit for bit.
"""
import os
import subprocess
import sys

from journey import RECORD, Place, Verdict

JOURNEY = RECORD % 3000 + "swipe left\nsave\nuntil Save\n"


def saved(verdict, program, source, env, case):
    with Place(program, source) as place:
        verdict.outcome(case, place.run(JOURNEY, env=env), ["done"])
        return place.sounds()


def changed(tool, source, env):
    """The tool's output for the sample, through pipes and then through files."""
    with open(source + "/res/sample/hello.wav", "rb") as sample:
        sound = sample.read()
    piped = subprocess.run([tool, "high", "-", "-"], input=sound, stdout=subprocess.PIPE, env=env, check=False)
    with Place(tool, source) as place:
        path = place.path("high.wav")
        status = subprocess.run([tool, "high", source + "/res/sample/hello.wav", path], env=env, check=False).returncode
        with open(path, "rb") as file:
            return piped.returncode, piped.stdout, status, file.read()


def main(shim, tool, program, source):
    verdict = Verdict()
    env = {"LD_PRELOAD": os.path.realpath(shim), "ASAN_OPTIONS": "verify_asan_link_order=0:exitcode=97"}
    look = "import os; print(len(os.read(0, 5000)))"
    shown = subprocess.run([sys.executable, "-c", look], input=b"x" * 5000, stdout=subprocess.PIPE,
                           env=dict(os.environ, **env), check=True).stdout
    verdict.check(shown == b"1500\n", "reading is not cut short")
    wanted = saved(verdict, program, source, None, "whole writes")
    verdict.check(list(wanted) == ["rec_00000.wav"] and len(wanted["rec_00000.wav"]) > 40000, "nothing was saved")
    verdict.check(saved(verdict, program, source, env, "short writes") == wanted, "the saved sounds differ")
    whole = changed(tool, source, None)
    verdict.check(whole[0] == whole[2] == 0 and whole[1] == whole[3], "the tool does not work")
    verdict.check(changed(tool, source, dict(os.environ, **env)) == whole, "the tool's sounds differ")
    verdict.end()


if __name__ == "__main__":
    main(*sys.argv[1:])
