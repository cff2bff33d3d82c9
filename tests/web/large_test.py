# SPDX-License-Identifier: MIT
"""Large sound files: the page takes their first twenty seconds, and has room left for every effect."""
import array
import math
import os
import random
import unittest
import wave

from murmelo import HEADER_BYTES, PageTest, temporary_folder

# Name, rate, channels, bytes of a sample, seconds. The small ones the program reads itself, the large ones the browser.
FILES = [
    ("twenty seconds of stereo", 44100, 2, 2, 20),
    ("a minute of stereo", 44100, 2, 2, 60),
    ("eight channels", 48000, 8, 2, 25),
    ("24 bits", 96000, 2, 3, 21),
    ("three minutes of one channel", 16000, 1, 2, 190),
]


def write(path, rate, channels, width, seconds):
    """A tone that comes and goes, louder in the first channel."""
    random.seed(1)
    second = array.array("i")
    for i in range(rate):
        for channel in range(channels):
            loudness = 0.3 / (channel + 1) * abs(math.sin(i / rate * 3))
            second.append(int((loudness * math.sin(i * 0.02) + random.uniform(-0.01, 0.01)) * 2 ** 31))
    samples = second.tobytes()
    content = b"".join(samples[at + 4 - width:at + 4] for at in range(0, len(samples), 4))
    with wave.open(path, "wb") as file:
        file.setnchannels(channels)
        file.setsampwidth(width)
        file.setframerate(rate)
        for _ in range(seconds):
            file.writeframes(content)


class Large(PageTest):
    def test_a_large_file_becomes_a_take_of_twenty_seconds(self):
        folder = temporary_folder(self)
        page = self.page.open().to_menu()
        for name, *form in FILES:
            with self.subTest(name):
                path = os.path.join(folder, name + ".wav")
                write(path, *form)
                self.tab.evaluate("murmelo.takeSeen = murmelo.sounds.kept.get('take'), 0")
                page.use(path)
                self.tab.wait_for("murmelo.sounds.kept.get('take') !== murmelo.takeSeen", seconds=60)
                self.tab.wait_for("murmelo.core.texts.screen === 'Play'")
                page.rest()
                self.assertEqual(20 * 32000 + HEADER_BYTES, self.tab.evaluate("murmelo.sounds.kept.get('take').bytes.length"))
        for _ in range(8):  # all eight effects, one after the other
            page.soft_key(1)
            page.until("Playing")
            page.soft_key(1)
            page.until("Play")
            page.effect(1)
        self.assertFalse(self.tab.evaluate("!document.getElementById('over').hidden"))


if __name__ == "__main__":
    unittest.main()
