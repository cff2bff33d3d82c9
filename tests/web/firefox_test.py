"""One journey in Firefox: first start, a sound file, robot, play to the end, save, and the list of sounds."""
import os
import unittest

from firefox import Firefox
from murmelo import SPEECH, Murmelo
from served import Served


class Journey(unittest.TestCase):
    def test_a_sound_is_opened_changed_played_and_saved(self):
        with Served(os.environ["MURMELO_PAGE"]) as address, Firefox() as firefox:
            page = Murmelo(firefox, address).open().to_menu()
            firefox.choose_file("file", SPEECH)
            page.until("Play")
            self.assertEqual("No effect", firefox.evaluate("murmelo.core.texts.title"))
            page.effect(1)
            self.assertEqual("Robot", firefox.evaluate("murmelo.core.texts.title"))
            page.soft_key(1)
            page.until("Playing")
            page.until("Play")
            page.press("Save")
            page.until("Save")
            page.told("saved")
            self.assertEqual(page.file("rec_00000.wav"), page.file("MrmLastProc.wav"))
            page.press("Sounds")
            firefox.wait_for("document.querySelector('dialog[open]').textContent.includes('murmelo-robot-00000.wav')")
            self.assertEqual([], firefox.complaints)


if __name__ == "__main__":
    unittest.main()
