# SPDX-License-Identifier: MIT
"""plain_words.py SOURCE: checks that the project has only plain words, and that tools/plain-words finds the others."""
import os
import subprocess
import sys
import tempfile

BAD = ["// Reads the bytes behind the header.", "int complainCount = 0;", "constexpr int kMostBytes = 1;", "/// Answers -1.",
       "// Whoever calls it anew", "wait.wake();  // aThreadThatIsRousedRuns", "// Takes so many samples."]
GOOD = ["// Reads the bytes after the header.", "// It has so many rows that they do not fit.", "int errorCount = 0;",
        "// A user called nobody answers the question."]


def places(tool, path):
    done = subprocess.run([sys.executable, "-B", tool, path], stdout=subprocess.PIPE, text=True, check=False)
    return done.returncode, [line.split(":")[1] for line in done.stdout.splitlines()]


def main(source):
    tool = os.path.join(source, "tools/plain-words")
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "sample.cpp")
        for lines, wanted in ((BAD, [str(number + 1) for number in range(len(BAD))]), (GOOD, [])):
            with open(path, "w", encoding="utf-8") as file:
                file.write("\n".join(lines))
            status, found = places(tool, path)
            if sorted(set(found)) != wanted or status != (1 if wanted else 0):
                print("in %s the lines %s are found, and not %s" % (lines, found, wanted))
                return 1
    return subprocess.run([sys.executable, "-B", tool], check=False).returncode


if __name__ == "__main__":
    sys.exit(main(os.path.realpath(sys.argv[1])))
