#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""behaviour-names.py SOURCE: checks that every test that docs/behaviour.md names exists."""
import pathlib
import re
import sys

source = pathlib.Path(sys.argv[1])
cases = {}  # suite without a trailing "Test" -> names
for path in (source / "tests").rglob("*.cpp"):
    for suite, name in re.findall(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", path.read_text(), re.M):
        for key in (suite, path.stem.removesuffix("_test")):
            cases.setdefault(key.removesuffix("Test"), set()).add(name)
flows = {path.stem for path in (source / "tests/flows").glob("*.txt")}

errors = []
rows = 0
for line in (source / "docs/behaviour.md").read_text().splitlines():
    if not line.startswith("|") or line.startswith(("| oddity", "|---")):
        continue
    rows += 1
    for group in line.strip("| ").split(" | ")[-1].split(";"):
        suite, *names = [word.strip() for word in group.split(",")]
        if not names:
            errors.append(f"names no test: {line}")
        for part in suite.split("/"):
            if part.startswith("flow ") and part.removeprefix("flow ") not in flows:
                errors.append(f"there is no flow {part}")
        suites = [word.strip().removesuffix("_test").removesuffix("Test") for word in suite.split(" and ")]
        for name in names:
            if not any(name in cases.get(one, ()) for one in suites):
                errors.append(f"there is no test {suite}, {name}")
print("\n".join(errors) if errors else f"all tests of {rows} rows exist")
sys.exit(1 if errors or rows < 50 else 0)
