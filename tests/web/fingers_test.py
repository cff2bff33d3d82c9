# SPDX-License-Identifier: MIT
"""Fingers on the picture work, also if the browser takes one away for a gesture of its own."""
import unittest

from murmelo import PageTest


class Fingers(PageTest):
    def setUp(self):
        super().setUp()
        self.tab.size(412, 780, ratio=2, mobile=True)
        self.page.open().to_menu()
        self.page.rest()
        self.tab.evaluate("""{
            murmelo.cancelled = 0;
            document.getElementById('picture').addEventListener('pointercancel', () => murmelo.cancelled++);
        }""")

    def soft_key(self):
        """The middle of the soft key "Select"."""
        x, y, width, height = self.tab.evaluate("""(() => {
            const box = document.getElementById('picture').getBoundingClientRect();
            return [box.x, box.y, box.width, box.height];
        })()""")
        return x + width / 2, y + height * 304 / 320

    def assertNothingPressed(self):
        self.tab.wait_for("murmelo.cancelled > 0")
        self.page.rest()
        self.tab.evaluate("new Promise((resolve) => setTimeout(resolve, 700))")
        self.assertEqual("Options", self.page.screen())
        self.tab.tap(*self.soft_key())
        self.page.until("Record")

    def test_the_help_speaks_of_fingers(self):
        self.tab.tap(*self.tab.evaluate("""(() => {
            const box = document.getElementById('help').getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2];
        })()"""))
        self.tab.wait_for("document.getElementById('live').textContent.startsWith('Help. Swipe across the picture')")

    def test_a_finger_that_the_browser_takes_away_presses_nothing(self):
        self.tab.touch("touchStart", self.soft_key())
        self.tab.touch("touchCancel")
        self.assertNothingPressed()

    def test_a_pinch_that_begins_on_a_soft_key_presses_nothing(self):
        x, y = self.soft_key()
        self.tab.touch("touchStart", (x, y))
        self.tab.touch("touchStart", (x, y), (x + 20, y - 200))
        for step in range(1, 8):
            self.tab.touch("touchMove", (x, y + 2 * step), (x + 20, y - 200 - 15 * step))
        self.tab.touch("touchEnd")
        self.tab.wait_for("visualViewport.scale > 1")
        self.tab.call("Emulation.setPageScaleFactor", pageScaleFactor=1)
        self.assertNothingPressed()


if __name__ == "__main__":
    unittest.main()
