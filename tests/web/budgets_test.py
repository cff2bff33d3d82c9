# SPDX-License-Identifier: MIT
"""The page stays within its limits of transferred bytes, lines of script and memory. Times are printed, not checked."""
import glob
import os
import re
import subprocess
import unittest

from murmelo import EFFECTS, FOLDER, HEADER_BYTES, SOURCE, SPEECH, PageTest, noisy, read_wav, temporary_folder, write_wav

WASM_BYTES = 140000  # packed; 20,000 of them for the strip and its words
FIRST_PICTURE_BYTES = 500000  # 20,000 of them for the strip: its pictures, its words and its script
SCRIPT_LINES = 1500
MEMORY_PAGES = 256  # of 64 KiB: 16 MiB
TAKE_BYTES = 20 * 16000 * 2


def packed(path):
    """The size of a file as a server sends it."""
    return len(subprocess.run(["brotli", "--quality=11", "--stdout", path], stdout=subprocess.PIPE, check=True).stdout)


def files(*patterns):
    found = [path for pattern in patterns for path in sorted(glob.glob(os.path.join(FOLDER, pattern)))]
    assert len(found) >= len(patterns), found
    return found


def number(data, at):
    """Reads a LEB128 number of a wasm file. Returns the number and the index after it."""
    value = shift = 0
    while True:
        byte = data[at]
        at += 1
        value |= (byte & 127) << shift
        shift += 7
        if byte < 128:
            return value, at


def imported(name):
    """The files of a module of the page and of those that it imports, directly or not, before the first picture."""
    found, waiting = [], [name]
    while waiting:
        (path,) = files("page/" + waiting.pop())
        if path not in found:
            found.append(path)
            with open(path, encoding="utf-8") as file:
                waiting += re.findall(r"^(?:import|export) .*from '\./(\w+\.js)'", file.read(), re.M)
    return found


def memories(wasm):
    """The smallest and largest number of pages of each memory that the module makes or imports."""
    found, at = [], 8
    while at < len(wasm):
        kind = wasm[at]
        size, start = number(wasm, at + 1)
        if kind == 2:
            found += imported_memories(wasm, start)
        elif kind == 5:
            count, place = number(wasm, start)
            for _ in range(count):
                limits, place = memory_limits(wasm, place)
                found.append(limits)
        at = start + size
    return found


def memory_limits(wasm, at):
    has_max = wasm[at] & 1
    least, at = number(wasm, at + 1)
    max_pages, at = number(wasm, at) if has_max else (None, at)
    return (least, max_pages), at


def imported_memories(wasm, at):
    found = []
    count, at = number(wasm, at)
    for _ in range(count):
        for _ in range(2):  # the names of the module and of what is imported
            length, at = number(wasm, at)
            at += length
        kind, at = wasm[at], at + 1
        if kind == 0:  # a function: its type
            _, at = number(wasm, at)
        elif kind == 1:  # a table: its type and limits
            _, at = memory_limits(wasm, at + 1)
        elif kind == 2:
            limits, at = memory_limits(wasm, at)
            found.append(limits)
        else:  # a global: its type, and whether it changes
            at += 2
    return found


class Budgets(unittest.TestCase):
    def test_the_program(self):
        size = packed(files("murmelo.wasm")[0])
        print("murmelo.wasm: %d bytes of %d, packed" % (size, WASM_BYTES))
        self.assertLessEqual(size, WASM_BYTES)

    def test_all_that_the_first_picture_needs(self):
        needed = files("index.html", "style/*.css", "murmelo.js", "murmelo.wasm", "murmelo.data") + imported("main.js")
        sizes = {os.path.relpath(path, FOLDER): packed(path) for path in needed}
        print("the first picture: %d bytes of %d, packed" % (sum(sizes.values()), FIRST_PICTURE_BYTES))
        self.assertLessEqual(sum(sizes.values()), FIRST_PICTURE_BYTES, sizes)

    def test_the_pages_own_script(self):
        lines = 0
        for pattern in ("page/*.js", "worklet/*.js", "sw.js"):
            for path in glob.glob(os.path.join(SOURCE, "web", pattern)):
                with open(path, encoding="utf-8") as file:
                    lines += len(file.readlines())
        print("own script: %d lines of %d" % (lines, SCRIPT_LINES))
        self.assertLessEqual(lines, SCRIPT_LINES)

    def test_the_memory_is_16_mib_and_never_grows(self):
        with open(files("murmelo.wasm")[0], "rb") as file:
            self.assertEqual([(MEMORY_PAGES, MEMORY_PAGES)], memories(file.read()))


# Works on the current effect without a pause. Returns how many milliseconds that takes.
_WORKING = """(() => {
    const { core } = murmelo;
    const screen = () => {
        const texts = core.program._murmeloTextsIfNew();
        return texts === 0 ? screen.last : (screen.last = JSON.parse(core.program.UTF8ToString(texts)).screen);
    };
    screen.last = core.texts.screen;
    const begin = performance.now();
    core.program._murmeloKey(core.textAt('Enter'));
    while (screen() !== 'Playing') {
        core.program._murmeloTurn();
    }
    const ms = performance.now() - begin;
    core.turn();
    return ms;
})()"""


# Keeps the time of the longest turn of the program on each screen.
_TIMED_TURNS = """(() => {
    const { program } = murmelo.core;
    const turn = program._murmeloTurn;
    murmelo.longest = {};
    program._murmeloTurn = () => {
        const begin = performance.now();
        const ms = turn();
        const screen = murmelo.core.texts.screen;
        murmelo.longest[screen] = Math.max(murmelo.longest[screen] ?? 0, performance.now() - begin);
        return ms;
    };
})()"""


class Times(PageTest):
    OPTIONS = {"microphone": SPEECH}

    def test_turns_of_a_journey(self):
        page = self.page.open().to_menu()
        self.tab.evaluate(_TIMED_TURNS)
        page.record(3000)
        for _ in EFFECTS:
            page.soft_key(1)
            page.until("Playing")
            page.soft_key(1)
            page.until("Play")
            page.rest()
            page.effect(1)
        self.tab.press("#save")
        page.until("Save")
        longest = self.tab.evaluate("murmelo.longest")
        for screen, ms in longest.items():
            print("the longest turn on %s: %.1f ms" % (screen, ms))
        self.assertLessEqual({"Record", "Recording", "Play", "Playing", "Save"}, set(longest))

    def test_effects_on_twenty_seconds(self):
        page = self.page.open().to_menu()
        voice = os.path.join(temporary_folder(self), "voice.wav")
        write_wav(voice, noisy(read_wav(SPEECH)[0] * 4)[:TAKE_BYTES])
        page.use(voice)
        times = {effect: [] for effect in EFFECTS}
        for _ in range(2):
            for effect in EFFECTS:
                page.rest()
                times[effect].append(self.tab.evaluate(_WORKING))
                page.soft_key(1)
                page.until("Play")
                page.rest()
                page.effect(1)
        for effect in EFFECTS:
            print("%s on 20 s: %.0f ms first, %.0f ms at best" % (effect, times[effect][0], min(times[effect])))
        self.assertEqual(TAKE_BYTES // 2 + HEADER_BYTES, len(page.file("MrmLastProc.wav")))


if __name__ == "__main__":
    unittest.main()
