#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""commands.py BUILD SOURCE: checks that every command of the documentation works, or is in a list with a reason.

The commands are those of README.md, CONTRIBUTING.md and the Markdown files of docs and art (every line of an indented
or fenced block, and text between backquotes that begins like a command), and of the man pages (between .EX and .EE).
Those that not-run.txt lists are not run. The others run in a folder that looks like the source tree with the build in
build/release; the commands of man pages run in a user's own folder. A command must end with status 0, without output on
standard error, and must have made the files and folders that it names as its results.

The test also fails if an entry of the list is in no page any more.
"""
import glob
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

PROGRAMS = ("murmelo", "murmelo-headless", "murmelo-fx")
STARTERS = PROGRAMS + ("cmake", "ctest", "sudo", "man", "apt", "apt-get", "git", "ninja", "python3")
SOUND = re.compile(r"\.(wav|flac|ogg|opus|mp3)$")


def starts_a_command(text, source):
    """True if the text begins with a known program and has more words, or with an executable file of the tree."""
    words = text.split()
    while words and re.match(r"[A-Z_]+=", words[0]):
        words.pop(0)
    if not words:
        return False
    file = os.path.join(source, words[0])
    runnable = "/" in words[0] and os.path.isfile(file) and os.access(file, os.X_OK)
    return runnable or words[0].startswith("build/") and len(words) > 1 or words[0] in STARTERS and len(words) > 1


def without_remark(line):
    """The line without the remark that a page puts after a command and at least two blanks."""
    return re.split(r"\s{2,}", line.strip())[0]


def joined(lines):
    """The commands of a block: a line that ends in | or \\ is continued in the next line, one with << up to its word."""
    commands, lines = [], list(lines)
    while lines:
        command = lines.pop(0)
        while lines and command.rstrip().endswith(("|", "\\")):
            command += "\n" + lines.pop(0)
        here = re.search(r"<<\s*(\w+)", command)
        while lines and here and command.splitlines()[-1] != here.group(1):
            command += "\n" + lines.pop(0)
        commands.append(command)
    return commands


def of_markdown(text, source):
    """The commands of a page. A block with a script for murmelo-headless says so in its first line, and is left out."""
    text = re.sub(r"^```\w*\n(.*?)^```\n", lambda fenced: re.sub("^", "    ", fenced.group(1), flags=re.M).rstrip(" "), text,
                  flags=re.M | re.S)
    blocks = re.findall(r"(?:(?<=\n\n)|\A)((?:    .*\n|\n(?=    ))+)", text)
    for block in blocks:
        text = text.replace(block, "\n", 1)
        lines = [line[4:] for line in block.splitlines() if line.strip()]
        script = re.match(r"# (murmelo-headless .*) SCRIPT$", lines[0])
        if script:
            yield script.group(1) + " - <<END\n" + "\n".join(lines) + "\nEND"
        elif lines[0].startswith(" "):
            yield "a picture: " + lines[0].strip()
        else:
            yield from joined(without_remark(line) for line in lines)
    for quoted in re.findall(r"`([^`]+)`", text):
        quoted = " ".join(quoted.split())
        if starts_a_command(quoted, source):
            yield quoted


def of_man_page(text):
    for example in re.findall(r"^\.EX\n(.*?)^\.EE\n", text, re.M | re.S):
        for escape, sign in ((r"\-", "-"), (r"\(aq", "'"), (r"\(dq", '"'), (r"\e", "\\"), (r"\&", "")):
            example = example.replace(escape, sign)
        yield from joined(example.splitlines())


def all_commands(source):
    """Page and command, in the order in which they are read."""
    pages = ["README.md", "CONTRIBUTING.md"]
    for pattern in ("docs/*.md", "art/*.md", "docs/man/*.1"):
        pages += sorted(os.path.relpath(page, source) for page in glob.glob(os.path.join(source, pattern)))
    for page in pages:
        with open(os.path.join(source, page), encoding="utf-8") as file:
            text = file.read()
        seen = set()
        for command in of_man_page(text) if page.endswith(".1") else of_markdown(text, source):
            if command not in seen:
                seen.add(command)
                yield page, command


def listed(path):
    """The commands that are not run: a dictionary from (page, first line of the command) to the reason."""
    reasons, reason = {}, ""
    with open(path, encoding="utf-8") as file:
        for line in file.read().splitlines():
            if line.startswith("# "):
                reason = line[2:]
            elif line.strip():
                reasons[tuple(line.split(": ", 1))] = reason
    return reasons


class Folder:
    """A copy of the source tree with its build, as a reader of the pages has it. The real tree is not written to."""

    def __init__(self, build, source):
        self.folder = tempfile.TemporaryDirectory(prefix="murmelo_docs_")
        self.path = os.path.realpath(self.folder.name)
        self.build = self.path + "/tree/build/release"
        for name in ("home", "user/voices", "user/out"):
            os.makedirs(os.path.join(self.path, name))
        os.makedirs(self.build)
        shutil.copytree(source, self.path + "/tree", symlinks=True, dirs_exist_ok=True,
                        ignore=lambda folder, _: ["build", ".git"] if folder == source else [])
        for name in PROGRAMS:
            shutil.copy(os.path.join(build, name), self.build)
        for name in ("Res", "framework"):
            os.symlink(os.path.join(source, "res", name), os.path.join(self.build, name))
        # It installs from the real build folder; the notes for uninstalling are written to this one.
        os.symlink(build + "/cmake_install.cmake", self.build + "/cmake_install.cmake")
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("MURMELO_", "XDG_")) and name != "DESTDIR"}
        self.environment.update(HOME=self.path + "/home", MURMELO_INSTALL_NOTES=self.path, PATH=self.build + ":" + os.environ["PATH"], LC_ALL="C.UTF-8",
                                MANWIDTH="80")
        self.users_files()

    def users_files(self):
        """Makes the sound files that the man pages mention."""
        sample = self.path + "/tree/res/sample/hello.wav"
        self.inputs = {sample}
        for name in ("voice.wav", "voices/a.wav", "voices/b b.wav"):
            shutil.copy(sample, os.path.join(self.path, "user", name))
            self.inputs.add(os.path.join(self.path, "user", name))
        for name in ("voice.flac", "another.flac"):
            path = os.path.join(self.path, "user", name)
            subprocess.run([self.build + "/murmelo-fx", "none", sample, path], env=self.environment, check=True)
            self.inputs.add(path)

    def run(self, page, command):
        """Runs a command. Returns what is wrong, or nothing."""
        where = os.path.join(self.path, "user" if page.endswith(".1") or page == "docs/many-files.md" else "tree")
        results = [os.path.join(where, name) for name in self.results(command)]
        for path in results:
            self.remove(path)
        done = subprocess.run(["bash", "-e", "-o", "pipefail", "-c", command], cwd=where, env=self.environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False,
                              timeout=300)  # such as a command that builds, and is not in the list
        if done.returncode != 0:
            return "status %d: %s" % (done.returncode, done.stderr.decode(errors="replace").strip())
        # GNU parallel runs lscpu, which reports an error where /sys is missing.
        errors = [line for line in done.stderr.decode(errors="replace").splitlines() if not line.startswith("lscpu: ")]
        if errors:
            return "standard error: " + "\n".join(errors)
        missing = [os.path.relpath(path, where) for path in results if not self.holds_something(path)]
        if missing:
            return "left no " + " and no ".join(missing)
        return ""

    def remove(self, path):
        """Removes what an earlier command has made there, so that this command must make it. Inputs stay."""
        if path in self.inputs:
            return
        if os.path.isdir(path):
            shutil.rmtree(path)
        elif os.path.exists(path):
            os.remove(path)

    def results(self, command):
        """The sounds and folders that a command names: its results, and sounds that it reads."""
        words = shlex.split(command, comments=True)
        found = [word for word in words if SOUND.search(word) and "*" not in word]
        for option in ("--out-dir", "--prefix", "--joblog"):
            found += [words[words.index(option) + 1]] if option in words else []
        staged = [word.removeprefix("DESTDIR=") for word in words if word.startswith("DESTDIR=")]
        if staged:
            found = [staged[0] + words[words.index("--prefix") + 1]]
        return [os.path.join(self.path, "home", name[2:]) if name.startswith("~/") else name for name in found
                if not name.startswith("rec_")]

    @staticmethod
    def holds_something(path):
        return bool(os.listdir(path)) if os.path.isdir(path) else os.path.isfile(path) and os.path.getsize(path) > 44


def main(build, source):
    reasons = listed(source + "/tests/docs/not-run.txt")
    errors, ran, unused = [], 0, set(reasons)
    folder = Folder(build, source)
    for page, command in all_commands(source):
        key = (page, command.splitlines()[0])
        if key in reasons:
            unused.discard(key)
            continue
        ran += 1
        problem = folder.run(page, command)
        print("%s: %s: %s" % (page, key[1], problem or "works"))
        if problem:
            errors.append(key)
    for page, command in sorted(unused):
        print("%s: %s: is listed in not-run.txt, and not in the page" % (page, command))
    print("%d commands run, %d not run, %d of them fail" % (ran, len(reasons) - len(unused), len(errors)))
    sys.exit(1 if errors or unused or ran < 8 else 0)


if __name__ == "__main__":
    main(os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2]))
