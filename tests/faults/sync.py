# SPDX-License-Identifier: MIT
"""sync.py SHIM TOOL PROGRAM SOURCE: checks that a file that counts as saved is on the disk, with its name.

Outcomes: a saved sound, the settings and the tool's output are synced, renamed, and their folder is synced, in this
order. If the folder cannot be synced, the application's message (for a saved sound) or a sentence (the tool) says so; if
the file system has no such sync, nothing is printed.
"""
import errno
import os
import subprocess
import sys

from journey import RECORD, Patience, Place, Verdict, ended, environment

SAVE = RECORD % 2000 + "save\nexpect screen Save\n"
LANGUAGE = "expect screen FirstLang\ntap 240 432\nkey middle\nexpect screen Splash\n"


def variables(place, shim, reason=None):
    env = {"LD_PRELOAD": shim, "SYNC_LOG": place.path("log"),
           "ASAN_OPTIONS": "verify_asan_link_order=0:exitcode=97"}
    if reason:
        env["SYNC_FOLDER_ERROR"] = str(reason)
    return env


def log(place):
    path = place.path("log")
    return place.read("log").decode().splitlines() if os.path.exists(path) else []


def check_order(verdict, case, place, target):
    """Checks the order of three steps: sync of the file, rename, sync of the folder."""
    lines = [line.split() for line in log(place)]
    full = [[line[0]] + [os.path.realpath(os.path.join(place.folder, name)) for name in line[1:]] for line in lines]
    renames = [at for at, line in enumerate(full) if line[0] == "rename" and os.path.basename(line[2]) == target]
    if not verdict.check(len(renames) == 1, "%s: %s is not renamed once: %s" % (case, target, lines)):
        return
    _, made, name = full[renames[0]]
    verdict.check(["file", made] in full[:renames[0]], "%s: its bytes are not synced before: %s" % (case, lines))
    verdict.check(["folder", os.path.dirname(name)] in full[renames[0]:],
                  "%s: its folder is not synced after: %s" % (case, lines))


def run_tool(place, tool, env):
    shell = environment()
    shell.update(env)
    with subprocess.Popen([tool, "robot", "hello.wav", "out.wav"], cwd=place.folder, env=shell,
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True) as process:
        _, words, by_itself = ended(process, Patience(process))
    return process.returncode, words if by_itself else "it hangs"


def saved_sound(verdict, shim, program, source):
    with Place(program, source) as place:
        verdict.outcome("save", place.run(SAVE, env=variables(place, shim)), ["done"])
        check_order(verdict, "save", place, "rec_00000.wav")
    with Place(program, source) as place:
        place.write("home/Murmelo/rec_99999.wav", "kept")
        verdict.outcome("save over", place.run(SAVE, env=variables(place, shim)), ["done"])
        check_order(verdict, "save over", place, "rec_99999.wav")
    for reason, kind in ((errno.EIO, "message"), (errno.EINVAL, "done"), (errno.ENOTSUP, "done")):
        with Place(program, source) as place:
            outcome = place.run(SAVE, env=variables(place, shim, reason))
            verdict.outcome("save where the folder says %s" % os.strerror(reason), outcome, [kind])
            verdict.check("rec_00000.wav" in place.sounds(), "the sound is gone: %s" % sorted(place.sounds()))


def settings(verdict, shim, program, source):
    with Place(program, source, settings=None) as place:
        verdict.outcome("settings", place.run(LANGUAGE, env=variables(place, shim)), ["done"])
        check_order(verdict, "settings", place, "settings")
        verdict.check(place.read("config/settings") == b"lang=2\n", "not the chosen language: %s" % place.read("config/settings"))


def tool_output(verdict, shim, tool, program, source):
    with Place(program, source) as place:
        done = run_tool(place, tool, variables(place, shim))
        verdict.check(done == (0, ""), "the tool: status %s, %s" % done)
        check_order(verdict, "tool", place, "out.wav")
    with Place(program, source) as place:
        done = run_tool(place, tool, variables(place, shim, errno.EIO))
        verdict.check(done[0] == 1 and done[1].startswith("murmelo-fx: out.wav: may be lost"),
                      "the tool where the folder cannot be synced: status %s, %s" % done)


def main(shim, tool, program, source):
    verdict = Verdict()
    shim, tool = os.path.realpath(shim), os.path.realpath(tool)
    saved_sound(verdict, shim, program, source)
    settings(verdict, shim, program, source)
    tool_output(verdict, shim, tool, program, source)
    verdict.end()


if __name__ == "__main__":
    main(*sys.argv[1:])
