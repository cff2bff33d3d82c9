#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""speed_table.py SOURCE: the table and plot of docs/speed.md match the measured file, and a difference is found."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

source = pathlib.Path(sys.argv[1])
errors = []


def differs(folder):
    """The output of "tools/bench --check" for a tree; empty if there is no difference."""
    done = subprocess.run([folder / "tools/bench", "--check"], capture_output=True, text=True, check=False)
    if done.stderr or (done.returncode != 0) != bool(done.stdout):
        sys.exit(f"--check ended with {done.returncode}: {done.stdout}{done.stderr}")
    return done.stdout


def change(path, pattern, replacement):
    text, count = re.subn(pattern, replacement, path.read_text(), count=1, flags=re.M)
    if count != 1:
        sys.exit(f"{path} has nothing like {pattern}")
    path.write_text(text)


def expect(what, pattern, found):
    if not re.search(pattern, found):
        errors.append(f"{what}: --check said '{found}'")


expect("the tree", r"^$", differs(source))
with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    for part in ("tools", "bench/results", "docs"):
        shutil.copytree(source / part, folder / part)
    results = next(folder.glob("bench/results/*.csv"))
    changes = {
        "a figure of the table": (folder / "docs/speed.md", r"(?s)(<!-- tools/bench.*?^\| robot \| )\d", r"\g<1>9"),
        "a figure of the last table": (folder / "docs/speed.md", r"(?s)(.*<!-- tools/bench.*?^\| [^|]+ \| )\d(?=.*<!-- end)", r"\g<1>9"),
        "a figure of the plot": (folder / "docs/images/effects.svg", r"^(robot )\d", r"\g<1>9"),
    }
    for what, (path, pattern, replacement) in changes.items():
        before = path.read_text()
        change(path, pattern, replacement)
        expect(what, "the tables" if "table" in what else "the plot", differs(folder))
        path.write_text(before)
    lines = results.read_text().splitlines()
    results.write_text("\n".join([*lines[:1], *(re.sub(r"^([^,]*,[^,]*)", r"\1+", line) for line in lines[1:]), ""]))
    expect("changes that are not committed", r"is no commit of this branch", differs(folder))
    newest = re.sub(r"^[^,]*", "2999-12-31 00:00", "\n".join(lines[1:]), flags=re.M)
    results.write_text("\n".join([*lines, newest, ""]))
    expect("a newer run", r"(?s)the tables.*the plot", differs(folder))

def refusal(folder):
    """What "tools/bench --check" reports of a page that it cannot fill."""
    done = subprocess.run([folder / "tools/bench", "--check"], capture_output=True, text=True, check=False)
    return done.stderr if done.returncode == 1 else f"it ended with {done.returncode}"


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    for part in ("tools", "bench/results", "docs"):
        shutil.copytree(source / part, folder / part)
    page = folder / "docs/speed.md"
    text = page.read_text()
    for what, pattern, wanted in (
            ("an end between two tables", r"<!-- end -->\n", r"no line '<!-- end -->'"),
            ("the last end", r"(?s)(.*)<!-- end -->\n", r"no line '<!-- end -->'"),
            ("a table", r"(?s)<!-- tools/bench --table \S+ frame -->.*?<!-- end -->\n", r"not one of each")):
        page.write_text(text)
        change(page, pattern, r"\1" if "(.*)" in pattern else "")
        expect(f"without {what}", wanted, refusal(folder))

for line in errors:
    print(line)
sys.exit(1 if errors else 0)
