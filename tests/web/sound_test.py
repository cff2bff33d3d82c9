# SPDX-License-Identifier: MIT
"""From the same take the page makes the same files as murmelo-headless: cleaned up, and with every effect."""
import base64
import os
import unittest

from murmelo import EFFECTS, SPEECH, PageTest, headless, noisy, read_wav, temporary_folder, write_wav

CLEANED = "MrmLastRec.wav"
RESULT = "MrmLastProc.wav"


def saving():
    """The commands that save the take with every effect, from the choice of the effect on."""
    lines = []
    for effect in range(len(EFFECTS)):
        if effect:
            lines += ["key right", "until Play", "swipe left", "wait 1000"]
        lines += ["save", "until Save", "key middle", "until Options"]
    return lines


class Sound(PageTest):
    def setUp(self):
        super().setUp()
        self.folder = temporary_folder(self)
        self.page.stub("clock")

    def compare(self, samples, taking):
        """Saves with every effect on both sides, and compares the files byte by byte."""
        voice = os.path.join(self.folder, "voice.wav")
        write_wav(voice, samples)
        self.page.open()
        lines = ["key middle", "until Options", *taking, *saving()]
        self.tab.evaluate("player.setVoice(%r)" % base64.b64encode(samples).decode())
        self.tab.evaluate("player.play(%r)" % lines)
        script = ["mic " + voice] + [line.replace("take", "take " + voice) for line in lines]
        # Makes the removal fail: at its end the program would delete the files that are compared.
        sounds = headless(script + ["fail File.Remove 1"], self.folder)
        names = [CLEANED] + ["rec_%05d.wav" % effect for effect in range(len(EFFECTS))]
        contents = []
        for name in names:
            with open(os.path.join(sounds, name), "rb") as file:
                contents.append(file.read())
            with self.subTest(file=name):
                self.assertTrue(contents[-1] == self.page.file(name), "%s differs" % name)
        self.assertTrue(contents[-1] == self.page.file(RESULT), "what is saved is the result")
        self.assertEqual(len(EFFECTS), len(set(contents[1:])), "every effect is heard")
        self.assertNotIn(samples, contents[0])

    def test_recorded_speech(self):
        samples = read_wav(SPEECH)[0]
        self.compare(samples, ["tap 240 554", "until Record", "key middle", "wait %d" % (len(samples) // 32),
                               "key middle", "until Play"])

    def test_noisy_speech_from_a_file(self):
        self.compare(noisy(read_wav(SPEECH)[0][16000:]), ["take", "until Play"])


if __name__ == "__main__":
    unittest.main()
