# SPDX-License-Identifier: MIT
"""The page paints the same pixels as murmelo-headless, on every screen and on the strip above it, in every language."""
import base64
import os
import unittest

from murmelo import LANGUAGES, SPEECH, PageTest, headless, noisy, read_wav, temporary_folder, write_wav

VOICE_MS = 2500
# The commands at a later start, in this order; "shot" and "watch" name pictures.
WALK = """
until Splash
wait 500
shot splash
until Options
shot options
tap 240 616
shot help
key middle
tap 240 678
shot language
key right
tap 240 554
until Record
shot record
key middle
wait 2507
shot recording
watch Process cleaning
key middle
until Play
shot play
swipe left
wait 1000
shot robot
swipe left
wait 1000
shot backwards
swipe left
wait 1000
shot high
swipe left
wait 1000
shot low
swipe left
wait 1000
shot fast
swipe left
wait 1000
shot drunk
swipe left
wait 1000
shot flip
watch Process working
key middle
until Playing
wait 507
shot playing
until Play
swipe right
wait 1000
watch Process saving
save
until Save
shot save
""".split("\n")[1:-1]
LOSING = """
until Options
tap 240 554
key middle
wait 1000
remove MrmLastRec.wav
key middle
until MessageAndQuit
shot message
""".split("\n")[1:-1]


def first_start(language):
    """Chooses that language: the list begins with English, which has the focus."""
    row = ["tap 240 %d" % (306 + 62 * language)] if language else []
    return ["shot first", *row, "shot chosen", "key middle", "until Options", "shot menu"]


def named_pictures(lines):
    return [line.split()[-1] for line in lines if line.startswith(("shot", "watch"))]


class Pixels(PageTest):
    def setUp(self):
        super().setUp()
        self.folder = temporary_folder(self)
        self.voice = os.path.join(self.folder, "voice.wav")
        self.samples = noisy(read_wav(SPEECH)[0])[:VOICE_MS * 32]
        write_wav(self.voice, self.samples)
        self.page.stub("clock")

    def play(self, lines):
        self.tab.evaluate("player.setVoice(%r)" % base64.b64encode(self.samples).decode())
        self.tab.evaluate("player.play(%r)" % lines)

    def compare(self, lines, with_strip=(), **options):
        """Runs the lines on both sides and compares the pictures; for the names in with_strip, with the strip."""
        self.play(lines)
        script = ["mic " + self.voice]
        for line in lines:
            script.append(line + ".png" if line.startswith(("shot", "watch")) else line)
        headless(script, self.folder, **options)
        for name in named_pictures(lines):
            with self.subTest(picture=name):
                self.assertSame(name, with_strip=name in with_strip)

    def assertSame(self, name, expected_name=None, with_strip=False):
        with open(os.path.join(self.folder, (expected_name or name) + ".png"), "rb") as file:
            expected = base64.b64encode(file.read()).decode()
        self.assertEqual([], self.tab.evaluate("player.rowsUnlike(%r, %r, %s)" % (name, expected, "true" if with_strip else "false")),
                         "rows of the picture %s differ" % name)

    def walk(self, language):
        self.page.open()
        self.compare(first_start(language), with_strip=("first", "chosen", "menu"))
        self.page.reload()
        self.compare(WALK, again=True, with_strip=set(named_pictures(WALK)) - {"recording", "cleaning", "working", "saving", "save"})
        self.page.reload()
        self.compare(LOSING, again=True)


    def test_another_picture_is_found(self):
        self.page.open()
        self.compare(["shot first", "tap 240 368", "shot chosen"], with_strip=("first", "chosen"))
        with self.assertRaisesRegex(AssertionError, "differ"):
            self.assertSame("chosen", "first")


for index, name in enumerate(LANGUAGES):
    setattr(Pixels, "test_" + name, lambda self, index=index: self.walk(index))


if __name__ == "__main__":
    unittest.main()
