# SPDX-License-Identifier: MIT
"""A page that is not touched does nothing."""
import time
import unittest

from murmelo import PageTest

IDLE_SECONDS = 10
_STATE = "({...counted, turns: murmelo.core.turns})"


class Idle(PageTest):
    def test_nothing_is_due_in_the_menu(self):
        self.page.stub("counting")
        self.page.open().to_menu()
        self.page.rest()
        self.tab.wait_for("counted.waiting === 0")  # the message has been hidden
        before = self.tab.evaluate(_STATE)
        self.assertTrue(before["turns"] and before["timers"] and before["frames"] and before["messages"], before)
        time.sleep(IDLE_SECONDS)
        self.assertEqual(before, self.tab.evaluate(_STATE))


if __name__ == "__main__":
    unittest.main()
