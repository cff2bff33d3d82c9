# SPDX-License-Identifier: MIT
"""One journey in Firefox: a sound file gets the robot effect, is saved, found again at the next visit, and downloaded."""
import base64
import os
import unittest

from firefox import Firefox
from murmelo import FOLDER, HERE, SPEECH, Murmelo, headless, read_wav, temporary_folder
from served import Served

# Notes every screen that the program shows. Asking now and then would miss one that is left at once.
_NOTING = """(() => {
    const show = murmelo.accessible.show;
    murmelo.screens = [];
    murmelo.accessible.show = function (texts, words) {
        murmelo.screens.push(texts.screen);
        show.call(this, texts, words);
    };
    return true;
})()"""


class Journey(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.firefox = Firefox()
        cls.addClassCleanup(cls.firefox.close)

    def test_a_sound_is_changed_played_saved_found_again_and_downloaded(self):
        with Served(FOLDER) as address:
            firefox, page = self.firefox, Murmelo(self.firefox, address)
            page.open().to_menu()
            firefox.evaluate(_NOTING)
            firefox.choose_file("file", SPEECH)
            page.until("Play")
            self.assertEqual("No effect", firefox.evaluate("murmelo.core.texts.title"))
            page.rest()
            page.effect(1)
            self.assertEqual("Robot", firefox.evaluate("murmelo.core.texts.title"))
            page.soft_key(1)
            firefox.wait_for("murmelo.screens.includes('Playing')")
            page.until("Play")
            firefox.press("#save")
            page.until("Save")
            page.told("saved")

            page.reload().until("Options")
            firefox.press("#sounds")
            line = "document.querySelectorAll('dialog[open] li p')[1].textContent"
            self.assertEqual("murmelo-robot-00000.wav (Robot, 5.6 s)", firefox.wait_for(line))
            page.press(page.word("download"))
            downloaded = firefox.downloaded("murmelo-robot-00000.wav")
            self.assertEqual(list(downloaded), firefox.evaluate("Array.from(murmelo.sounds.kept.get('/home/Murmelo/rec_00000.wav').bytes)"))
            self.assertEqual([], firefox.problems)

    def test_the_same_sound_makes_the_same_files(self):
        """Some effects seed their noise with the clock: with the test's clock, the files equal those of murmelo-headless."""
        folder, samples = temporary_folder(self), read_wav(SPEECH)[0]
        lines = ["key middle", "until Options", "take", "until Play", "swipe left", "wait 1000", "save", "until Save"]
        sounds = headless([line.replace("take", "take " + SPEECH) for line in lines], folder)
        with open(sounds + "/rec_00000.wav", "rb") as file:
            expected = file.read()
        with open(os.path.join(HERE, "stubs/clock.js"), encoding="utf-8") as file:
            self.firefox.before_load(file.read())
        with Served(FOLDER) as address:
            page = Murmelo(self.firefox, address).open()
            self.firefox.evaluate("player.setVoice('%s')" % base64.b64encode(samples).decode())
            self.firefox.evaluate("player.play(%r)" % lines)
            self.assertTrue(expected == page.file("rec_00000.wav"), "robot differs")


if __name__ == "__main__":
    unittest.main()
