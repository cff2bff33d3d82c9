#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""many-files.py MURMELO_FX SOURCE: each way of docs/many-files.md gives the same results as one process, byte for byte.

Runs the commands of the page itself, each with the same 43 sounds of different lengths. In place of other machines there is
a program "ssh" that runs the command in a folder of that machine's name; the shares of the job array run one by one.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import wave

COUNT = 43  # neither a multiple of the 20 files of a process nor of the ten shares
SHARES = 10
SSH = r"""#!/bin/bash
while [[ $1 == -* ]]; do
    case $1 in -[bcDEeFIiJLlmOopQRSWw]) shift ;; esac
    shift
done
machine=$1
shift
[ "$1" != -- ] || shift
[ -d "$MACHINES/$machine" ] || { echo "there is no machine $machine" >&2; exit 255; }
echo "$machine" >>"$MACHINES/used"
cd "$MACHINES/$machine" || exit 255
HOME=$PWD exec bash -c "$*"
"""


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, 0o755)


def make_sounds(sample, folder):
    """Cuts the sample to COUNT lengths, each in a file; some names have a blank."""
    with wave.open(sample) as file:
        form, samples = file.getparams(), file.readframes(file.getnframes())
    os.makedirs(folder + "/deeper")
    for number in range(COUNT):
        name = ("deeper/%d.wav" if number % 3 == 0 else "voice %d.wav" if number % 3 == 1 else "%d.wav") % number
        with wave.open(os.path.join(folder, name), "wb") as file:
            file.setparams(form)
            file.writeframes(samples[:(2000 + 333 * number) * form.sampwidth * form.nchannels])


def contents(folder):
    found = {}
    for name in os.listdir(folder):
        with open(os.path.join(folder, name), "rb") as file:
            found[name] = file.read()
    return found


def commands(page):
    """The ways of the page: a name, and the lines that a user would type."""
    script = re.search(r"^```sh\n(.*?)^```$", page, re.M | re.S).group(1)
    lines = [line[4:] for line in page.replace(script, "").splitlines() if line.startswith("    ")]
    one_by_one = [line for line in lines if "xargs" in line or "parallel -j" in line]
    shared = [line for line in lines if "--wd ." in line]
    first = next(number for number, line in enumerate(lines) if line.startswith("export RSYNC"))
    yield from ((line, line) for line in one_by_one if "--resume" not in line)
    resumed = [line for line in one_by_one if "--resume" in line]
    yield resumed[0], one_by_one[1] + "\n" + resumed[0]
    yield from ((line, line) for line in shared)
    yield lines[first + 2], "\n".join(lines[first:first + 4])
    tasks = "for task in {1..%d}; do SLURM_ARRAY_TASK_ID=$task bash robots.sh; done" % SHARES
    yield "robots.sh", "cat >robots.sh <<'END'\n%sEND\n%s" % (script, tasks)


def main(program, source):
    errors, ways = [], 0
    with tempfile.TemporaryDirectory(prefix="murmelo_many_") as folder:
        folder = os.path.realpath(folder)
        for name in ("programs", "machines/one", "machines/two", "home"):
            os.makedirs(os.path.join(folder, name))
        os.symlink(program, folder + "/programs/murmelo-fx")
        write(folder + "/programs/ssh", SSH)
        environment = dict(os.environ, PATH=folder + "/programs:" + os.environ["PATH"], HOME=folder + "/home",
                           MACHINES=folder + "/machines", LC_ALL="C.UTF-8", PARALLEL_SSH="ssh", SHELL="/bin/bash")
        work = folder + "/work"
        make_sounds(source + "/res/sample/hello.wav", work + "/voices")

        def run(text):
            shutil.rmtree(work + "/robots", ignore_errors=True)
            if os.path.exists(work + "/robots.log"):
                os.remove(work + "/robots.log")
            os.makedirs(work + "/robots")
            return subprocess.run(["bash", "-e", "-o", "pipefail", "-c", text], cwd=work, env=environment,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                                  text=True)

        done = run("find voices -name '*.wav' -exec murmelo-fx robot --seed 1 --out-dir robots {} +")
        wanted = contents(work + "/robots")
        if done.returncode != 0 or len(wanted) != COUNT or len(set(wanted.values())) != COUNT:
            sys.exit("one process made %d of %d different results: %s" % (len(set(wanted.values())), COUNT, done.stdout))
        with open(source + "/docs/many-files.md", encoding="utf-8") as file:
            page = file.read()
        for name, text in commands(page):
            ways += 1
            done = run(text)
            got = contents(work + "/robots")
            other = sorted(one for one in set(got) | set(wanted) if got.get(one) != wanted.get(one))
            result = "the same as in one process"
            if done.returncode != 0 or other:
                errors.append(name)
                result = "status %d, other results: %s\n%s" % (done.returncode, ", ".join(other), done.stdout[-2000:])
            print("%s: %s" % (name, result))
        with open(folder + "/machines/used", encoding="utf-8") as file:
            used = set(file.read().split())
        left = [name for name in ("one", "two") if os.listdir(folder + "/machines/" + name) not in ([], [".parallel"])]
        if used != {"one", "two"} or left:
            errors.append("the machines used are %s; something is left on %s" % (sorted(used), left))
    print("\n".join(errors))
    sys.exit(1 if errors or ways != 6 else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2]))
