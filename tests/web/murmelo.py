# SPDX-License-Identifier: MIT
"""The built page in Chromium, and murmelo-headless to compare it with."""
import array
import base64
import json
import os
import subprocess
import tempfile
import unittest
import wave

from browser import Browser
from served import Served

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = os.path.realpath(os.path.join(HERE, "../.."))
FOLDER = os.environ.get("MURMELO_PAGE", os.path.join(SOURCE, "build/web"))
HEADLESS = os.environ.get("MURMELO_HEADLESS", os.path.join(SOURCE, "build/release/murmelo-headless"))
SPEECH = os.path.join(SOURCE, "res/sample/hello.wav")


def _languages():
    with open(os.path.join(SOURCE, "cmake/languages.txt"), encoding="utf-8") as file:
        return tuple(line.strip() for line in file if not line.startswith("#"))


def _effects():
    """Their words, as murmelo-fx lists them."""
    tool = os.path.join(os.path.dirname(HEADLESS), "murmelo-fx")
    listed = subprocess.run([tool, "--list"], stdout=subprocess.PIPE, check=True).stdout.decode()
    return tuple(line.split()[0] for line in listed.splitlines())


LANGUAGES = _languages()
EFFECTS = _effects()
HOME = "/home/Murmelo/"
RATE_HZ = 16000
HEADER_BYTES = 44
_BETWEEN_TAPS_MS = 600  # of two taps on the soft keys within half a second the second is ignored


class Murmelo:
    """One tab with the page in it. Screens are named as in scripts of murmelo-headless."""

    def __init__(self, tab, address):
        self.tab, self.address = tab, address

    def open(self, query=""):
        self.tab.open(self.address + query)
        return self.running()

    def reload(self):
        self.tab.reload()
        return self.running()

    def running(self):
        self.tab.wait_for(_COUNTING)
        return self

    def screen(self):
        return self.tab.evaluate("murmelo.core.texts.screen")

    def until(self, *screens):
        """Waits for one of these screens."""
        return self.tab.wait_for("%s.includes(murmelo.core.texts.screen) && murmelo.core.texts.screen"
                                 % json.dumps(screens))

    def stub(self, name):
        """Runs tests/web/stubs/NAME.js before the page's own scripts, from the next load on."""
        with open(os.path.join(HERE, "stubs", name + ".js"), encoding="utf-8") as file:
            self.tab.before_load(file.read())

    def press(self, text):
        """Clicks on the element with this text, in the picture or beside it, as soon as it exists."""
        place = self.tab.wait_for("""(() => {
            const shown = document.querySelector('dialog[open]') ?? document; // the rest is inert
            const found = [...shown.querySelectorAll('button, a')].find((one) =>
                one.textContent === %s && one.checkVisibility({checkVisibilityCSS: true}) && !one.disabled);
            if (performance.now() < (murmelo.nextTapMs ?? 0)) {
                return false;
            }
            murmelo.nextTapMs = performance.now() + %d;
            found.scrollIntoView({block: 'nearest'});
            const box = found.getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2];
        })()""" % (json.dumps(text), _BETWEEN_TAPS_MS))
        self.tab.click(*place)

    def rest(self):
        """Waits until nothing moves and nothing is due."""
        self.tab.wait_for("murmelo.core.timer === 0 && !murmelo.core.posted && murmelo.core.frame === 0")

    def effect(self, number):
        """From the choice of the effect, shows that one."""
        name = self.tab.evaluate("murmelo.core.texts.title")
        for _ in range(number):
            self.press(self.word("nextEffect"))
            self.tab.wait_for("murmelo.core.texts.title !== %s" % json.dumps(name))
            self.rest()
            name = self.tab.evaluate("murmelo.core.texts.title")

    def word(self, name):
        """The page's text with that name, in its language."""
        return self.tab.evaluate("murmelo.words[%s]" % json.dumps(name))

    def told(self, name):
        """Waits until the page shows this message, or one with the same beginning up to its first {1}."""
        self.tab.wait_for("""((start) => start !== '' &&
            document.querySelector('#message[data-shown] span').textContent.startsWith(start)
        )(murmelo.words[%s].split('{1}')[0])""" % json.dumps(name))

    def message(self):
        return self.tab.evaluate("document.querySelector('#message[data-shown] span')?.textContent ?? ''")

    def to_menu(self):
        """From a first start, in English."""
        self.until("FirstLang")
        self.press("Select")
        self.until("Options")
        return self

    def to_recording(self):
        """From the menu to a recording that gets samples."""
        self.press("Record")
        self.until("Record")
        self.tab.wait_for("!murmelo.microphone.listens && murmelo.core.standsStillSince < 0")
        self.soft_key(1)
        self.until("Recording")
        return self

    def soft_key(self, number):
        """Clicks on the left (0), middle (1) or right (2) soft key."""
        self.tab.click(*self.tab.wait_for("""(() => {
            if (murmelo.core.texts.softKeys[%d].text === '' || performance.now() < (murmelo.nextTapMs ?? 0)) {
                return false;
            }
            murmelo.nextTapMs = performance.now() + %d;
            const [x, y, w, h] = murmelo.core.texts.softKeys[%d].place;
            const box = document.getElementById('picture').getBoundingClientRect();
            const scale = box.width / 240;
            return [box.x + (x + w / 2) * scale, box.y + (y + h / 2) * scale];
        })()""" % (number, _BETWEEN_TAPS_MS, number)))

    def hear(self, ms):
        """Waits until the recording has that many milliseconds."""
        self.tab.wait_for("murmelo.heardMs >= %d" % ms)

    def record(self, ms=1500):
        """From the menu: records that many milliseconds, and waits until the take is cleaned up."""
        self.to_recording()
        self.hear(ms)
        self.soft_key(1)
        self.until("Play")
        return self

    def use(self, path):
        """Opens a sound file with the page's button, and waits until it is the take."""
        self.tab.pick_files(lambda: self.tab.press("#open"), [path])
        self.until("Play")

    def file(self, name):
        """The bytes of a file of the sound folder, or None."""
        return _bytes(self.tab.evaluate("""(() => {
            try {
                return %s(murmelo.core.program.FS.readFile(%s));
            } catch {
                return null;
            }
        })()""" % (_BASE64, json.dumps(HOME + name))))

    def files(self):
        """The names of the sound folder."""
        return sorted(name for name in self.tab.evaluate("murmelo.core.program.FS.readdir(%s)" % json.dumps(HOME))
                      if not name.startswith("."))

    def kept(self, path):
        """The entry of the database for that path ("take": the samples of the raw take), or None."""
        found = _bytes(self.tab.evaluate("""new Promise((resolve) => {
            const opening = indexedDB.open(murmelo.store.name, 1);
            opening.onsuccess = () => {
                const reading = opening.result.transaction('kept').objectStore('kept').get(%s);
                reading.onsuccess = () => {
                    opening.result.close();
                    resolve(reading.result ? %s(reading.result.bytes) : null);
                };
            };
        })""" % (json.dumps(path), _BASE64)))
        return found[HEADER_BYTES:] if found and path == "take" else found


# True as soon as the page can be used. Then it also counts how much the current recording has heard.
_COUNTING = """(() => {
    const { core, microphone } = murmelo;
    if (!core.running || !core.texts.screen || !murmelo.input) {
        return false;
    }
    const [start, heard] = [microphone.start, microphone.heard];
    if (murmelo.heardMs === undefined) {
        murmelo.heardMs = 0;
        microphone.start = () => {
            murmelo.heardMs = 0;
            start.call(microphone);
        };
        microphone.heard = (piece, rate) => {
            murmelo.heardMs += microphone.listens ? piece.length * 1000 / rate : 0;
            heard.call(microphone, piece, rate);
        };
    }
    return true;
})()"""
_BASE64 = """((bytes) => {
    let text = '';
    for (let at = 0; at < bytes.length; at += 8192) {
        text += String.fromCharCode(...bytes.subarray(at, at + 8192));
    }
    return btoa(text);
})"""


def _bytes(base64_text):
    return None if base64_text is None else base64.b64decode(base64_text)


class PageTest(unittest.TestCase):
    """One browser for all tests of a class, a new tab and a new origin for each test. Errors,
    violations of the policy and requests to other origins make a test fail, unless it expects them."""

    OPTIONS = {}  # of Browser

    @classmethod
    def setUpClass(cls):
        cls.browser = Browser(**cls.OPTIONS)
        cls.addClassCleanup(cls.browser.kill)

    def setUp(self):
        self.server = Served(FOLDER)
        self.server.start()
        self.addCleanup(self.server.stop)
        self.browser.records.clear()
        self.tab = self.browser.new_tab()
        self.page = Murmelo(self.tab, self.server.address)
        self.expected = []  # texts that an expected error contains

    def tearDown(self):
        problems = [str(record) for record in self.browser.records.problems()]
        self.assertEqual([], [text for text in problems if not any(part in text for part in self.expected)])
        self.assertEqual([], self.browser.records.foreign_requests(self.server.origin))
        self.tab.close()


def headless(commands, folder, settings=None, again=False):
    """Runs a script of murmelo-headless in a folder, with a home of its own. Returns the path of its sound folder."""
    home, config = os.path.join(folder, "home"), os.path.join(folder, "config")
    if not again:
        os.makedirs(home)
        os.makedirs(config)
    if settings:
        with open(os.path.join(config, "settings"), "w", encoding="utf-8") as file:
            file.write(settings)
    ran = subprocess.run([HEADLESS, "--strip", "--home", home, "--config", config, "-"], input="\n".join(commands) + "\n", text=True,
                         capture_output=True, cwd=folder, check=False)
    if ran.returncode:
        raise AssertionError("murmelo-headless: %s\n%s" % (ran.stderr, "\n".join(commands)))
    return os.path.join(home, "Murmelo")


def write_wav(path, samples, rate=RATE_HZ):
    """samples: the bytes of 16-bit samples, one channel."""
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(samples)


def read_wav(path):
    """Returns the samples of a file as bytes, and its rate."""
    with wave.open(path) as file:
        return file.readframes(file.getnframes()), file.getframerate()


def noisy(samples, seed=12345, amplitude=900):
    """The same samples with noise, the same on every machine."""
    values = array.array("h", samples)
    for i, value in enumerate(values):
        seed = (seed * 1103515245 + 12345) & 0x7fffffff
        values[i] = max(-32768, min(32767, value + (seed >> 16) % (2 * amplitude + 1) - amplitude))
    return values.tobytes()


def temporary_folder(test):
    folder = tempfile.TemporaryDirectory(prefix="murmelo_page_")
    test.addCleanup(folder.cleanup)
    return folder.name
