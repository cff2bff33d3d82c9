# SPDX-License-Identifier: MIT
"""The harness works: a page takes its input for a user's, and every error of a page is found."""
import array
import json
import operator
import os
import struct
import tempfile
import threading
import unittest
import wave
import zlib

from browser import Browser
from devtools import DevToolsError, Pipe
from page import PageError
from pictures import Picture
from served import Served

_HERE = os.path.dirname(os.path.abspath(__file__))
_PAGES = os.path.join(_HERE, "pages")
_SPEECH = os.path.join(_HERE, "../../res/sample/hello.wav")


class BrowserTest(unittest.TestCase):
    """One server for each test; `browser()` starts a browser that ends with the test."""

    def setUp(self):
        self.server = Served(_PAGES)
        self.server.start()
        self.addCleanup(self.server.stop)

    def browser(self, **options):
        browser = Browser(**options)
        self.addCleanup(browser.kill)
        return browser

    def page(self, name, **options):
        page = self.browser(**options).page
        page.open(self.server.address + name)
        return page


class HandsTest(BrowserTest):
    def setUp(self):
        super().setUp()
        self.started = self.browser()
        self.tab = self.started.page
        self.tab.open(self.server.address + "button.html")

    def seen(self, name):
        """Waits until the page has noted an event of this name, and returns the last one."""
        return self.tab.wait_for("seen.filter((one) => one.name === %s).at(-1)" % json.dumps(name))

    def test_a_click_is_the_users_own(self):
        self.tab.click(90, 85)
        click = self.seen("click")
        self.assertEqual(("button", "mouse", True, True),
                         (click["target"], click["pointer"], click["trusted"], click["activated"]))

    def test_a_tap_is_a_fingers(self):
        self.tab.size(360, 640, ratio=2, mobile=True)
        self.tab.tap(90, 85)
        click = self.seen("click")
        self.assertEqual(("button", "touch", True, True),
                         (click["target"], click["pointer"], click["trusted"], click["activated"]))

    def test_press_scrolls_to_what_lies_outside_the_window(self):
        self.tab.press("#far")
        self.assertEqual("far", self.seen("click")["target"])

    def test_keys_have_their_names(self):
        for key in ("Escape", "ArrowDown", "a", "A", "7", " "):
            self.tab.key(key)
            self.assertEqual((key, True), (self.seen("keydown")["key"], self.seen("keydown")["trusted"]))
        self.tab.key("s", "Control")
        self.assertEqual(("s", True), (self.seen("keydown")["key"], self.seen("keydown")["control"]))

    def test_files_are_picked_dropped_and_downloaded(self):
        self.tab.pick_files(lambda: self.tab.press("#file"), [_SPEECH])
        size = os.path.getsize(_SPEECH)
        self.assertEqual([["hello.wav", size]], self.seen("change")["files"])
        self.tab.drop("#button", _SPEECH)
        self.assertEqual([["hello.wav", size]], self.seen("drop")["files"])
        self.tab.press("#download")
        with open(self.started.downloaded("voice.txt"), encoding="utf-8") as file:
            self.assertEqual("hello", file.read())

    def test_the_picture_is_the_windows_in_device_pixels(self):
        self.tab.size(300, 200, ratio=2)
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "page.png")
            self.tab.screenshot(path)
            picture = Picture(path)
        self.assertEqual((600, 400), (picture.width, picture.height))
        self.assertEqual((0x20, 0x40, 0x60), picture.pixel(10, 350)[:3])
        self.assertNotEqual((0x20, 0x40, 0x60), picture.pixel(180, 200)[:3])  # on the button
        self.assertEqual(600 * 400 * 3, len(picture.rgb()))
        self.assertEqual([300, 200, 2], self.tab.evaluate("[innerWidth, innerHeight, devicePixelRatio]"))

    def test_words_are_what_a_screen_reader_finds(self):
        self.assertIn(("button", "Press"), [(role, name) for role, name, _ in self.tab.words()])

    def test_media_and_safe_area_are_as_told(self):
        self.tab.media(prefers_reduced_motion="reduce", prefers_color_scheme="dark")
        self.assertTrue(self.tab.evaluate(
            "matchMedia('(prefers-reduced-motion: reduce) and (prefers-color-scheme: dark)').matches"))
        self.tab.safe_area(top=33)
        self.assertEqual("33px", self.tab.wait_for("""(() => {
            document.body.style.paddingTop = 'env(safe-area-inset-top)';
            return getComputedStyle(document.body).paddingTop;
        })()"""))

    def test_another_tab_hides_the_first_and_shares_its_profile(self):
        self.tab.evaluate("localStorage.setItem('name', 'murmelo')")
        other = self.started.new_tab()
        self.assertTrue(self.seen("visibilitychange")["hidden"])
        other.open(self.server.address + "button.html")
        self.assertEqual("murmelo", other.evaluate("localStorage.getItem('name')"))
        self.tab.front()
        self.tab.wait_for("!document.hidden")
        other.wait_for("document.hidden")
        other.close()
        with self.assertRaises(DevToolsError):
            other.wait_for("false")

    def test_a_frozen_page_hears_of_it(self):
        self.tab.freeze()
        self.tab.thaw()
        self.assertTrue(self.seen("freeze"))
        self.assertTrue(self.seen("resume"))

    def test_scripts_before_load_replace_what_the_page_finds(self):
        self.tab.before_load("navigator.share = () => 'stub'")
        self.tab.reload()
        self.assertEqual("stub", self.tab.evaluate("navigator.share()"))

    def test_a_sound_page_has_no_problems(self):
        self.tab.press("#button")
        self.seen("click")
        self.assertEqual([], self.started.records.problems())
        self.assertEqual([], self.started.records.foreign_requests(self.server.origin))
        self.assertIn(self.server.address + "button.js", self.started.records.requests())


class MicrophoneTest(BrowserTest):
    def test_the_fake_microphone_speaks_the_file(self):
        page = self.page("microphone.html", microphone=_SPEECH)
        with wave.open(_SPEECH) as file:
            self.assertEqual((16000, 1, 2), (file.getframerate(), file.getnchannels(), file.getsampwidth()))
            spoken = [sample / 32768 for sample in array.array("h", file.readframes(file.getnframes()))]
        page.press("#record")
        self.assertEqual("hears at 16000", page.wait_for("outcome"))
        page.wait_for("heard.length >= %d" % (len(spoken) + 16000))
        heard = page.evaluate("heard")
        self.assertGreater(found_pieces(spoken, heard), 0.5)

    def test_a_refusal_is_a_refusal(self):
        for setting, outcome in (("denied", "NotAllowedError"), ("granted", "hears at 16000")):
            browser = self.browser(ask=True)
            browser.permission("microphone", setting, self.server.origin)
            browser.page.open(self.server.address + "microphone.html")
            browser.page.press("#record")
            self.assertEqual(outcome, browser.page.wait_for("outcome"))

    def test_there_may_be_no_microphone(self):
        page = self.page("microphone.html", microphone=False)
        page.press("#record")
        self.assertEqual("NotFoundError", page.wait_for("outcome"))


class RecordsTest(BrowserTest):
    def test_foreign_requests_and_breaches_of_the_policy_are_found(self):
        browser = self.browser()
        browser.page.open(self.server.address + "breaches.html")
        self.assertEqual(["http://127.0.0.1:9999/foreign.png"],
                         browser.records.foreign_requests(self.server.origin))
        self.assertIn(self.server.address + "breaches.js", browser.records.requests())
        browser.records.until(lambda records: records.all("violation"))
        self.assertEqual(["script-src-elem: kInlineViolation"],
                         [record.text for record in browser.records.all("violation")])

    def test_errors_that_nothing_caught_are_found(self):
        browser = self.browser()
        browser.page.open(self.server.address + "breaches.html")
        browser.page.evaluate("provoke()")
        browser.records.until(lambda records: len(records.all("exception")) == 2 and records.all("console-error"))
        texts = [record.text for record in browser.records.all("exception")]
        self.assertTrue(any("nothing caught this" in text for text in texts), texts)
        self.assertTrue(any("nothing awaited this" in text for text in texts), texts)
        self.assertIn("told the console 7", browser.records.all("console-error")[0].text)
        self.assertLessEqual(3, len(browser.records.problems()))
        browser.records.clear()
        self.assertEqual([], browser.records.problems())

    def test_a_service_worker_is_watched_and_works_offline(self):
        browser = self.browser()
        browser.page.open(self.server.address + "worker.html")
        browser.page.wait_for("navigator.serviceWorker.controller")
        self.assertEqual(1, len(browser.workers()))
        browser.offline()
        browser.page.reload()
        self.assertEqual(["Worker", False], browser.page.evaluate("[document.title, navigator.onLine]"))
        self.assertEqual("failed", browser.page.evaluate("fetch('none').then(() => 'came', () => 'failed')"))
        browser.offline(False)
        self.assertEqual(404, browser.page.evaluate("fetch('none').then((reply) => reply.status)"))
        browser.page.evaluate("navigator.serviceWorker.controller.postMessage('http://127.0.0.1:9999/spy')")
        browser.records.until(lambda records: records.foreign_requests(self.server.origin))

    def test_a_full_store_refuses(self):
        browser = self.browser()
        browser.page.quota(20000, self.server.origin)
        browser.page.open(self.server.address + "button.html")
        self.assertEqual("QuotaExceededError", browser.page.evaluate("""new Promise((resolve) => {
            const opening = indexedDB.open('full', 1);
            opening.onupgradeneeded = () => opening.result.createObjectStore('files');
            opening.onsuccess = () => {
                const writing = opening.result.transaction('files', 'readwrite');
                writing.objectStore('files').put(new Uint8Array(60000), 'take');
                writing.oncomplete = () => resolve('stored');
                writing.onabort = () => resolve(writing.error.name);
            };
        })"""))


class EndTest(BrowserTest):
    def test_what_cannot_be_reached_or_thrown_is_told(self):
        page = self.page("button.html")
        with self.assertRaisesRegex(PageError, "deliberate"):
            page.evaluate("Promise.reject(new Error('deliberate'))")
        with self.assertRaisesRegex(PageError, "seen.length > 99"):
            page.wait_for("seen.length > 99", seconds=0)
        self.server.stop()
        with self.assertRaisesRegex(PageError, "ERR_CONNECTION_REFUSED"):
            page.open(self.server.address)

    def test_a_killed_browser_fails_every_call_and_leaves_nothing(self):
        browser = self.browser()
        home = os.path.dirname(browser.downloads)
        failed = []

        def wait():
            try:
                browser.page.evaluate("new Promise(() => {})")
            except DevToolsError as error:
                failed.append(str(error))

        waiting = threading.Thread(target=wait)
        waiting.start()
        browser.kill()
        waiting.join(60)
        self.assertEqual(1, len(failed))
        with self.assertRaises(DevToolsError):
            browser.page.evaluate("1")
        self.assertFalse(os.path.exists(home))

    def test_a_profile_of_the_callers_own_is_kept(self):
        with tempfile.TemporaryDirectory() as profile:
            with Browser(profile=profile) as browser:
                browser.page.open(self.server.address + "button.html")
                browser.page.evaluate("localStorage.setItem('kept', 'yes')")
            with Browser(profile=profile) as browser:
                browser.page.open(self.server.address + "button.html")
                self.assertEqual("yes", browser.page.evaluate("localStorage.getItem('kept')"))

    def test_a_browser_that_does_not_start_says_why(self):
        with self.assertRaisesRegex(DevToolsError, "did not start"):
            Browser(flags=["--version"])


class PipeTest(unittest.TestCase):
    def setUp(self):
        self.browser_reads, writes = os.pipe()
        reads, self.browser_writes = os.pipe()
        self.events = []
        self.pipe = Pipe(reads, writes, lambda session, method, params: self.events.append((session, method, params)))
        self.addCleanup(self.pipe.close)
        self.addCleanup(os.close, self.browser_reads)

    def reply_in_pieces(self, data, size):
        for at in range(0, len(data), size):
            os.write(self.browser_writes, data[at:at + size])

    def test_messages_in_pieces_and_several_at_once(self):
        event = json.dumps({"method": "Said", "params": {"text": "Grüße"}}, ensure_ascii=False).encode() + b"\0"
        reply = json.dumps({"id": 1, "result": {"value": 7}}).encode() + b"\0"
        for size in (1, 7, 1000):
            self.events.clear()
            self.reply_in_pieces(event + event, size)
            with self.pipe.changed:
                self.assertTrue(self.pipe.changed.wait_for(lambda: len(self.events) == 2, 60))
            self.assertEqual([(None, "Said", {"text": "Grüße"})] * 2, self.events)
        answering = threading.Thread(target=lambda: (os.read(self.browser_reads, 1000),
                                                     self.reply_in_pieces(event + reply + event, 3)))
        answering.start()
        self.assertEqual({"value": 7}, self.pipe.call("Runtime.evaluate"))
        answering.join()
        os.close(self.browser_writes)

    def test_the_end_of_the_pipe_fails_every_call(self):
        ending = threading.Thread(target=lambda: (os.read(self.browser_reads, 1000), os.close(self.browser_writes)))
        ending.start()
        with self.assertRaisesRegex(DevToolsError, "closed its pipe"):
            self.pipe.call("Page.enable")
        ending.join()
        with self.assertRaisesRegex(DevToolsError, "closed its pipe"):
            self.pipe.call("Page.enable")

    def test_an_error_is_raised_with_its_text(self):
        reply = b'{"id":1,"error":{"message":"no page"}}\0'
        answering = threading.Thread(target=lambda: (
            os.read(self.browser_reads, 1000), os.write(self.browser_writes, reply)))
        answering.start()
        with self.assertRaisesRegex(DevToolsError, "Page.enable: no page"):
            self.pipe.call("Page.enable")
        answering.join()
        os.close(self.browser_writes)

    def test_what_is_no_message_fails_every_call(self):
        os.write(self.browser_writes, b"no JSON\0")
        with self.assertRaisesRegex(DevToolsError, "reading from the browser failed"):
            self.pipe.call("Page.enable")
        os.close(self.browser_writes)


class PicturesTest(unittest.TestCase):
    def test_every_filter_of_a_row_is_undone(self):
        width, height = 7, 5
        pixels = bytes(place * 37 * place % 256 for place in range(width * height * 3))
        size = width * 3
        rows = [pixels[at:at + size] for at in range(0, len(pixels), size)]
        with tempfile.TemporaryDirectory() as folder:
            for kind in range(5):
                data = b""
                for y, row in enumerate(rows):
                    above = rows[y - 1] if y else bytes(size)
                    data += bytes([kind] + [(row[i] - predicted(kind, row, above, i)) % 256 for i in range(size)])
                path = os.path.join(folder, "%d.png" % kind)
                with open(path, "wb") as file:
                    file.write(b"\x89PNG\r\n\x1a\n" + b"".join(
                        struct.pack(">I", len(content)) + name + content + struct.pack(">I", zlib.crc32(name + content))
                        for name, content in (
                            (b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)),
                            (b"IDAT", zlib.compress(data)[:20]), (b"IDAT", zlib.compress(data)[20:]), (b"IEND", b""))))
                picture = Picture(path)
                self.assertEqual((width, height, pixels), (picture.width, picture.height, picture.rgb()), kind)
                self.assertEqual(tuple(rows[2][9:12]), picture.pixel(3, 2))


def predicted(kind, row, above, i):
    """What the PNG filter of this kind expects at byte i of a row of three channels."""
    left, corner = (row[i - 3], above[i - 3]) if i >= 3 else (0, 0)
    if kind == 4:
        guess = left + above[i] - corner
        distances = [abs(guess - value) for value in (left, above[i], corner)]
        return (left, above[i], corner)[distances.index(min(distances))]
    return (0, left, above[i], (left + above[i]) // 2)[kind]


def envelope(samples, at=0):
    """How loud each 10 ms are."""
    return [sum(map(abs, samples[place:place + 160])) for place in range(at, len(samples) - 159, 160)]


def found_pieces(spoken, heard):
    """The fraction of the 200 ms pieces of `spoken` that are found anywhere in `heard`. Each piece is looked for by
    itself, because on a busy machine the browser loses parts of what it records."""
    size = 20
    wanted = envelope(spoken)
    pieces = [wanted[at:at + size] for at in range(0, len(wanted) - size + 1, size)]
    pieces = [shape(piece) for piece in pieces if sum(piece) > size * sum(wanted) / len(wanted) / 2]  # no silence
    places = []
    for late in range(0, 160, 20):
        found = envelope(heard, late)
        places += [shape(found[at:at + size]) for at in range(len(found) - size + 1)]
    return sum(any(sum(map(operator.mul, piece, place)) > 0.97 for place in places) for piece in pieces) / len(pieces)


def shape(values):
    """The values without their mean, as long as 1: the product of two is their correlation."""
    mean = sum(values) / len(values)
    length = sum((value - mean) ** 2 for value in values) ** 0.5 or 1
    return [(value - mean) / length for value in values]


if __name__ == "__main__":
    unittest.main()
