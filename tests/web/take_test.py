# SPDX-License-Identifier: MIT
"""In several visits of one user a take is recorded, played, saved, shared and found again."""
import os
import unittest

from murmelo import EFFECTS, HEADER_BYTES, HOME, SPEECH, PageTest, headless, temporary_folder, write_wav

CLEANED = "MrmLastRec.wav"
RESULT = "MrmLastProc.wav"
TAKE_MS = 1300  # short: it is played eight times


class Take(PageTest):
    OPTIONS = {"microphone": SPEECH}

    def setUp(self):
        super().setUp()
        self.tab.size(412, 780, ratio=2)
        self.page.stub("watching")

    def start(self):
        self.page.open().to_menu()
        self.assertEqual([], self.tab.evaluate("noted.microphones"), "nothing is asked before a recording is offered")
        return self.page

    def in_headless(self, raw, lines):
        """Runs murmelo-headless with the same take and these commands. Returns its sound folder."""
        folder = temporary_folder(self)
        write_wav(os.path.join(folder, "raw.wav"), raw)
        return headless(["until Options", "take raw.wav", "until Play", *lines, "fail File.Remove 1"], folder, "lang=0")

    def content(self, folder, name):
        with open(os.path.join(folder, name), "rb") as file:
            return file.read()

    def play_to_the_end(self):
        """Returns what was played: a WAV file."""
        before = self.tab.evaluate("""(() => {
            noted.ended = 0;
            murmelo.speaker.audio.onended = () => noted.ended = murmelo.speaker.audio.duration;
            return noted.clips.length;
        })()""")
        self.page.soft_key(1)
        self.page.until("Playing")
        self.page.until("Play")
        seconds = self.tab.wait_for("noted.ended")
        clip = bytes(self.tab.wait_for("noted.clips[%d].bytes" % before))
        self.assertAlmostEqual((len(clip) - HEADER_BYTES) / 16000, seconds, delta=0.01)
        return clip

    def test_a_take_is_recorded_and_played_with_every_effect(self):
        page = self.start()
        page.record(TAKE_MS)
        asked = self.tab.evaluate("noted.microphones.map(({ constraints, activated }) => [constraints.audio, activated])")
        self.assertEqual([[{"channelCount": 1, "echoCancellation": False, "noiseSuppression": False,
                            "autoGainControl": False}, True]], asked)
        self.assertEqual(["ended"], self.tab.evaluate("noted.microphones[0].tracks.map((track) => track.readyState)"),
                         "the browser's recording light is out")
        raw, cleaned = page.kept("take"), page.file(CLEANED)
        self.assertGreaterEqual(len(raw), TAKE_MS * 32)
        played = []
        for effect in range(len(EFFECTS)):
            page.effect(1 if effect else 0)
            played.append(self.play_to_the_end())
            self.assertTrue(played[-1][HEADER_BYTES:] == page.file(RESULT)[HEADER_BYTES:], "%s is played as it is" % EFFECTS[effect])
        self.assertEqual(len(EFFECTS), len(set(played)), "every effect is heard")
        sounds = self.in_headless(raw, [])
        self.assertTrue(cleaned == self.content(sounds, CLEANED), "the same clean-up makes the same file")

    def test_sounds_are_saved_shared_downloaded_deleted_and_brought_back(self):
        page = self.start()
        page.record(TAKE_MS)
        page.effect(EFFECTS.index("backwards"))
        self.tab.press("#save")
        page.until("Save")
        name, path = "murmelo-backwards-00000.wav", HOME + "rec_00000.wav"
        page.told("saved")
        self.assertEqual("Saved: " + name, page.message())
        saved = page.file("rec_00000.wav")
        sounds = self.in_headless(page.kept("take"), ["swipe left", "wait 1000", "swipe left", "wait 1000", "save"])
        self.assertTrue(saved == self.content(sounds, "rec_00000.wav"))
        self.tab.wait_for("noted.asksToStay === 1")
        self.assertTrue(saved == page.kept(path))

        page.press(page.word("share"))  # the message's button
        self.assertEqual([name, "audio/wav", name], self.tab.wait_for(
            "noted.shared.length && [noted.shared[0].name, noted.shared[0].type, noted.shared[0].title]"))
        self.assertTrue(saved == bytes(self.tab.evaluate("noted.shared[0].bytes")))

        self.tab.press("#sounds")
        self.assertEqual(["Last recording", name], self.listed())
        page.press(page.word("download"))
        self.assertTrue(saved == self.content(self.browser.downloads, os.path.basename(self.browser.downloaded(name))))
        page.press(page.word("play"))
        self.tab.wait_for("murmelo.speaker.audio.currentTime > 0")
        page.press(page.word("stop"))
        self.tab.wait_for("murmelo.speaker.audio.paused && murmelo.sounds.playing === ''")
        page.press(page.word("play"))
        self.tab.wait_for("murmelo.speaker.audio.currentTime > 0 && murmelo.sounds.playing")
        self.tab.key("Escape")
        self.tab.wait_for("murmelo.speaker.audio.paused && murmelo.sounds.playing === ''")
        self.tab.press("#sounds")
        page.press(page.word("play"))
        page.press(page.word("stop"))  # at once; this must not be reported as an error of playing
        page.press(page.word("play"))
        self.tab.wait_for("murmelo.sounds.playing === ''")  # to its end
        self.assertFalse(page.message().startswith(page.word("cannotPlay")))
        page.press(page.word("delete"))
        page.told("deleted")
        self.assertEqual((["Last recording"], None), (self.listed(), page.file("rec_00000.wav")))
        page.press(page.word("undo"))
        self.assertEqual((["Last recording", name], True), (self.listed(), saved == page.file("rec_00000.wav")))
        self.tab.wait_for("murmelo.sounds.kept.has(%r)" % path)
        self.tab.key("Escape")
        self.tab.wait_for("!document.querySelector('dialog').open")

        page.reload().until("Options")
        self.assertTrue(saved == page.file("rec_00000.wav") == page.kept(path))
        self.tab.press("#sounds")
        self.assertEqual(["Last recording", name], self.listed())
        page.press(page.word("delete"))
        page.told("deleted")
        self.tab.wait_for(_NOT_KEPT % path)
        page.reload().until("Options")
        self.tab.press("#sounds")
        self.assertEqual((["Last recording"], None), (self.listed(), page.file("rec_00000.wav")))

    def test_the_list_is_in_the_programs_language_and_uses_the_one_speaker(self):
        page = self.page.open()
        page.press("Deutsch")
        self.tab.wait_for("murmelo.core.texts.entries.some((entry) => entry.isFocused && entry.text === 'Deutsch')")
        page.soft_key(1)
        page.until("Options")
        page.use(SPEECH)
        page.effect(1)
        self.tab.press("#save")
        page.until("Save")
        page.told("saved")
        page.soft_key(1)
        page.until("Options")
        page.soft_key(2)
        page.until("Play")
        page.soft_key(1)
        page.until("Playing")
        self.tab.press("#sounds")
        lines = self.tab.evaluate("[...document.querySelectorAll('dialog li p')].map((line) => line.textContent)")
        self.assertEqual(["Letzte Aufnahme (5,6 s)", "murmelo-robot-00000.wav (Roboter, 5,6 s)"], lines)
        page.press(page.word("play"))
        page.until("Play")
        self.assertTrue(self.tab.evaluate("murmelo.sounds.playing !== '' && document.querySelectorAll('audio').length === 1"))
        self.tab.wait_for("murmelo.sounds.playing === ''")

    def listed(self):
        """The sounds of the list, without their lengths."""
        return self.tab.evaluate("[...document.querySelectorAll('dialog li p')].map((line) => line.textContent.split(' (')[0])")

    def test_language_and_last_take_are_there_at_the_next_visit(self):
        page = self.page.open()
        page.press("Deutsch")
        self.tab.wait_for("murmelo.core.texts.entries.some((entry) => entry.isFocused && entry.text === 'Deutsch')")
        page.soft_key(1)
        page.until("Options")
        self.assertEqual(["de", "Speichern"], self.tab.evaluate(
            "[document.documentElement.lang, document.getElementById('save').textContent]"))
        self.tab.press("[aria-current]")
        page.until("Record")
        self.tab.wait_for("murmelo.core.standsStillSince < 0 && murmelo.core.texts.softKeys[1].text")
        page.soft_key(1)
        page.until("Recording")
        page.hear(TAKE_MS)
        page.soft_key(1)
        page.until("Play")
        cleaned, raw = page.file(CLEANED), page.kept("take")

        page.reload()
        self.assertNotEqual("FirstLang", page.screen())
        page.until("Options")
        self.assertEqual("de", self.tab.evaluate("document.documentElement.lang"))
        self.assertIsNone(page.file(CLEANED))
        page.told("lastTake")
        page.press(page.word("bringBack"))
        page.until("Play")
        self.assertTrue(cleaned == page.file(CLEANED), "the same take makes the same file")
        self.assertTrue(raw == page.kept("take"))

        page.reload().until("Options")
        self.tab.press("#sounds")
        page.press(page.word("forget"))
        self.tab.wait_for(_NOT_KEPT % "take")
        self.assertEqual([], self.listed())
        page.reload().until("Options")
        self.assertEqual("", page.message())


_NOT_KEPT = """new Promise((resolve) => {
    const opening = indexedDB.open(murmelo.store.name, 1);
    opening.onsuccess = () => {
        const reading = opening.result.transaction('kept').objectStore('kept').getAllKeys();
        reading.onsuccess = () => {
            opening.result.close();
            resolve(!reading.result.includes('%s'));
        };
    };
})"""


if __name__ == "__main__":
    unittest.main()
