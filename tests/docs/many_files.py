#!/usr/bin/env python3
"""many_files.py PROGRAM SOURCE: what docs/many-files.md says works, and its results are the same however they are spread.

Each command of the page that spreads runs in a folder with the same sounds; in each the results must be those of one
process, to the byte. The other machines are this one: where parallel starts ssh, it gets a stand-in that runs the
command in another folder. A job array is its script, once for each number. PROGRAM is murmelo-fx.
"""
import os
import re
import subprocess
import sys
import tempfile
import wave

SHARES = 10
SOUNDS = 23  # neither a multiple of the shares nor of the files of one process

# Runs the command of "ssh ... HOST COMMAND" here, in a home of that machine.
SSH = """#!/bin/bash
while [[ $1 == -* ]]; do
    case $1 in -l | -o | -p | -i | -S | -O) shift ;; esac
    shift
done
machine=$1
shift
[ "$1" != -- ] || shift
echo "$machine" >>"$MACHINES.used"
mkdir -p "$MACHINES/$machine"
cd "$MACHINES/$machine" && HOME=$PWD exec bash -c "$*"
"""


def blocks(text):
    """Indented and fenced blocks of a page."""
    indented = ["\n".join(line[4:] for line in block.splitlines())
                for block in re.findall(r"(?<=\n\n)((?:    .*\n)+)", text)]
    return indented + re.findall(r"^```sh\n(.*?)^```", text, re.M | re.S)


def make_sounds(source, folder):
    """Pieces of the sample, each of another length."""
    with wave.open(source + "/res/sample/hello.wav") as sample:
        facts, frames = sample.getparams(), sample.readframes(sample.getnframes())
    os.makedirs(folder + "/voices/deeper")
    width = facts.sampwidth * facts.nchannels
    for number in range(SOUNDS):
        name = "%s/voices/%sa voice %d.wav" % (folder, "deeper/" if number % 3 == 0 else "", number)
        with wave.open(name, "wb") as piece:
            piece.setparams(facts)
            piece.writeframes(frames[number * 500 * width:][:(8000 + 700 * number) * width])


def results(folder):
    found = {}
    for name in os.listdir(folder + "/robots") if os.path.isdir(folder + "/robots") else []:
        with open(os.path.join(folder, "robots", name), "rb") as file:
            found[name] = file.read()
    return found


class Spread:
    def __init__(self, program, source):
        self.source = source
        self.folder = tempfile.TemporaryDirectory(prefix="murmelo_many_")
        self.path = self.folder.name
        self.wrong = 0
        os.mkdir(self.path + "/bin")
        os.mkdir(self.path + "/home")
        with open(self.path + "/bin/ssh", "w", encoding="utf-8") as file:
            file.write(SSH)
        os.chmod(self.path + "/bin/ssh", 0o755)
        self.environment = dict(os.environ, HOME=self.path + "/home", LC_ALL="C.UTF-8", MACHINES=self.path + "/machines",
                                PATH=":".join([self.path + "/bin", os.path.dirname(program), os.environ["PATH"]]))
        self.count = 0
        self.wanted = self.run("one process", "find voices -name '*.wav' -exec murmelo-fx robot --seed 1 --out-dir robots {} +")

    def complain(self, what, complaint):
        print("%s: %s" % (what, complaint))
        self.wrong += 1

    def run(self, what, command, environments=({},)):
        """The results of a command in a folder of its own."""
        self.count += 1
        where = "%s/%d" % (self.path, self.count)
        make_sounds(self.source, where)
        for more in environments:
            done = subprocess.run(["bash", "-e", "-o", "pipefail", "-c", command], cwd=where, stdin=subprocess.DEVNULL,
                                  env=dict(self.environment, **more), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  check=False)
            if done.returncode or done.stderr or done.stdout:
                self.complain(what, "status %d: %s" % (done.returncode, (done.stdout + done.stderr).decode()))
        found = results(where)
        if len(found) != SOUNDS:
            self.complain(what, "%d results, not %d" % (len(found), SOUNDS))
        return found

    def compare(self, what, command, environments=({},)):
        found = self.run(what, command, environments)
        others = sorted(name for name in self.wanted if found.get(name) != self.wanted[name])
        print("%s: %s" % (what.splitlines()[-1], "differs in %s" % others if others else "the same to the byte"))
        self.wrong += bool(others)

    def formats(self):
        """Other kinds of files, spread and not."""
        for kind in ("wav", "flac"):
            for effect in ("flip", "drunk"):
                command = "murmelo-fx %s --seed 7 --format %s --out-dir robots" % (effect, kind)
                self.wanted = self.run(command, "find voices -name '*.wav' -exec %s {} +" % command)
                self.compare("xargs, " + command, "find voices -name '*.wav' -print0 | xargs -0 -P 4 -n 3 " + command)


def main(program, source):
    with open(source + "/docs/many-files.md", encoding="utf-8") as file:
        page = blocks(file.read())
    spread = Spread(program, source)
    for block in page:
        if "SLURM" in block:
            numbers = [{"SLURM_ARRAY_TASK_ID": str(number)} for number in range(1, SHARES + 1)]
            spread.compare("Slurm", block, numbers)
        else:
            spread.compare(block, block)
    with open(spread.path + "/machines.used", encoding="utf-8") as file:
        used = set(file.read().split())
    if used != {"one", "two"}:
        spread.complain("parallel -S one,two", "works on %s" % used)
    spread.formats()
    sys.exit(1 if spread.wrong or len(page) < 5 else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2]))
