# SPDX-License-Identifier: MIT
"""Sound files of all kinds that browsers know are taken in: dropped, opened with the page, or shared with it."""
import array
import base64
import ctypes
import os
import unittest

from murmelo import SPEECH, PageTest, read_wav, temporary_folder, write_wav

_INSTALLED = "navigator.serviceWorker.ready.then((registration) => registration.active.state === 'activated')"
_KINDS = {"flac": 0x170002, "ogg": 0x200060, "mp3": 0x230082}  # as libsndfile numbers them
_WRITE = 0x20


class _Info(ctypes.Structure):
    _fields_ = [("frames", ctypes.c_int64), ("rate", ctypes.c_int), ("channels", ctypes.c_int), ("format", ctypes.c_int),
                ("sections", ctypes.c_int), ("seekable", ctypes.c_int)]


def write_compressed(path, samples, rate):
    """Writes 16-bit samples as a file of the kind that its name says, with libsndfile."""
    library = ctypes.CDLL("libsndfile.so.1")
    library.sf_open.restype = ctypes.c_void_p
    info = _Info(rate=rate, channels=1, format=_KINDS[path.rsplit(".", 1)[1]])
    file = ctypes.c_void_p(library.sf_open(path.encode(), _WRITE, ctypes.byref(info)))
    assert file, path
    written = library.sf_writef_short(file, samples, ctypes.c_int64(len(samples) // 2))
    library.sf_close(file)
    assert written == len(samples) // 2, path


class TakeIn(PageTest):
    def setUp(self):
        super().setUp()
        self.folder = temporary_folder(self)
        self.speech = read_wav(SPEECH)[0]
        self.page.open().to_menu()
        self.page.rest()

    def path(self, name, samples=None):
        path = os.path.join(self.folder, name)
        if name.endswith(".wav"):
            write_wav(path, samples or self.speech)
        else:
            write_compressed(path, samples or self.speech, 16000)
        return path

    def assertTaken(self, delta=0):
        self.page.until("Play")
        take = self.page.kept("take")
        self.assertAlmostEqual(len(self.speech) / 32000, len(take) / 32000, delta=0.15)
        self.assertGreater(max(map(abs, array.array("h", take))), 5000, "it speaks")

    def bytes_of(self, path):
        """A file's bytes as an expression of JavaScript."""
        with open(path, "rb") as file:
            return "Uint8Array.from(atob('%s'), (letter) => letter.charCodeAt(0))" % base64.b64encode(file.read()).decode()

    def drop(self, path):
        self.tab.drop("#picture", path)

    def test_a_plain_file_is_dropped(self):
        self.drop(self.path("voice.wav"))
        self.page.until("Play")
        self.assertTrue(self.speech == self.page.kept("take"), "bit for bit")

    def test_of_a_longer_file_the_first_seconds_are_told(self):
        for name in ("talk.wav", "talk.ogg"):
            with self.subTest(name):
                self.tab.evaluate("murmelo.sounds.kept.delete('take')")
                self.drop(self.path(name, self.speech * (2 + 21 * 32000 // len(self.speech))))
                self.tab.wait_for("document.querySelector('#message[data-shown] span')?.textContent === "
                                  "murmelo.words.firstSeconds.replace('{1}', '%s')" % name)
                self.assertTrue(self.tab.evaluate("murmelo.sounds.kept.has('take')"))

    def test_compressed_files_are_dropped(self):
        for kind in _KINDS:
            with self.subTest(kind):
                self.tab.evaluate("murmelo.sounds.kept.delete('take')")
                self.drop(self.path("voice." + kind))
                self.tab.wait_for("murmelo.sounds.kept.has('take')")
                self.assertTaken()

    def test_the_page_is_opened_with_a_file(self):
        self.tab.before_load("""{
            const queue = { setConsumer: (consumer) => { queue.consumer = consumer; } };
            Object.defineProperty(window, 'launchQueue', { value: queue });
        }""")
        self.page.reload().until("Options")
        file = "new File([%s], 'voice.ogg')" % self.bytes_of(self.path("voice.ogg"))
        self.tab.evaluate("launchQueue.consumer({ files: [{ getFile: async () => %s }] }), 0" % file)
        self.assertTaken()
        self.tab.evaluate("launchQueue.consumer({ files: [] }), 0")  # opened without one

    def share(self, form):
        """Shares a form with the page, as another app does if the page is installed."""
        self.tab.wait_for(_INSTALLED)
        self.page.reload().until("Options")
        self.tab.wait_for("navigator.serviceWorker.controller")
        self.tab.evaluate("""{
            const form = document.createElement('form');
            Object.assign(form, { action: './', method: 'post', enctype: 'multipart/form-data' });
            window.isThePageBefore = true;
            %s
            document.body.append(form);
            form.submit();
        }""" % form)
        self.tab.wait_for("!window.isThePageBefore && document.readyState === 'complete'")
        self.page.running()

    def test_a_file_is_shared_with_the_page(self):
        content = self.bytes_of(self.path("voice.flac"))
        self.share("""
            const files = new DataTransfer();
            files.items.add(new File([%s], 'voice.flac', { type: 'audio/flac' }));
            const input = Object.assign(document.createElement('input'), { type: 'file', name: 'sound' });
            input.files = files.files;
            form.append(input);""" % content)
        self.assertTaken()
        self.assertEqual("", self.tab.evaluate("location.search"))
        self.assertTrue(self.tab.evaluate("caches.open(`${murmelo.store.name} shared`).then((cache) => cache.keys()).then((keys) => keys.length === 0)"))

    def test_something_else_is_shared_with_the_page(self):
        self.share("form.append(Object.assign(document.createElement('input'), { name: 'sound', value: 'a text' }));")
        self.page.told("notShared")

    def test_what_is_no_sound_is_told(self):
        path = os.path.join(self.folder, "text.mp3")
        with open(path, "w", encoding="utf-8") as file:
            file.write("no sound\n" * 1000)
        self.drop(path)
        self.page.told("noSoundFile")
        self.assertEqual("Options", self.page.screen())

    def test_a_small_file_with_hours_of_sound_is_not_decoded(self):
        path = self.path("silence.flac", bytes(2 * 16000 * 400))
        self.assertLess(os.path.getsize(path), 1 << 20)
        self.tab.evaluate("{ OfflineAudioContext.prototype.decodeAudioData = () => { murmelo.decoded = true; }; }")
        self.drop(path)
        self.page.told("fileTooLong")
        self.assertFalse(self.tab.evaluate("Boolean(murmelo.decoded)"))
        self.assertEqual("Options", self.page.screen())


if __name__ == "__main__":
    unittest.main()
