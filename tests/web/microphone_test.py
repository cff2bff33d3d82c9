# SPDX-License-Identifier: MIT
"""If anything happens to a microphone, the page says so, and no take is lost."""
import array
import unittest

from murmelo import HEADER_BYTES, SPEECH, PageTest, read_wav

CLEANED = "MrmLastRec.wav"


class MicrophoneTest(PageTest):
    def with_a_take(self):
        """Goes to the menu with a take from a file. Returns the cleaned and the raw take."""
        self.page.open().to_menu()
        self.page.use(SPEECH)
        take = self.page.file(CLEANED), self.page.kept("take")
        self.assertEqual(read_wav(SPEECH)[0], take[1])
        self.page.soft_key(0)
        self.page.until("Options")
        return take

    def assertTakeIsBack(self, take):
        self.page.until("Play")
        self.assertTrue(take[0] == self.page.file(CLEANED), "the earlier take is back, bit for bit")
        self.assertTrue(take[1] == self.page.kept("take"))

    def refused(self, word):
        """Tries to record where that is impossible, with an earlier take and without one."""
        take = self.with_a_take()
        self.page.press("Record")
        self.page.told(word)
        self.assertTakeIsBack(take)
        self.assertEqual(0, self.tab.evaluate("Number(murmelo.core.standsStillSince >= 0)"))

    def refused_at_first(self, word):
        self.page.open().to_menu()
        self.page.press("Record")
        self.page.told(word)
        self.page.until("Options")
        self.page.rest()
        self.assertIsNone(self.page.file(CLEANED))


class RefusedTest(MicrophoneTest):
    OPTIONS = {"ask": True}

    def setUp(self):
        super().setUp()
        self.browser.permission("microphone", "denied", self.server.origin)

    def test_not_allowed(self):
        self.refused("microphoneRefused")

    def test_not_allowed_at_first_and_allowed_later(self):
        self.refused_at_first("microphoneRefused")
        self.browser.permission("microphone", "granted", self.server.origin)
        self.page.record(500)


class MissingTest(MicrophoneTest):
    OPTIONS = {"microphone": False}

    def test_none_there(self):
        self.refused("microphoneMissing")

    def test_none_there_at_first(self):
        self.refused_at_first("microphoneMissing")


class InsecureTest(MicrophoneTest):
    OPTIONS = {"flags": ("--host-resolver-rules=MAP murmelo.test 127.0.0.1",)}

    def setUp(self):
        super().setUp()
        self.page.address = self.server.address = self.server.address.replace("localhost", "murmelo.test")

    def test_a_page_without_https(self):
        self.refused("microphoneInsecure")
        self.assertFalse(self.tab.evaluate("isSecureContext"))


class ThereTest(MicrophoneTest):
    OPTIONS = {"microphone": SPEECH}

    def test_used_by_another_program(self):
        self.page.stub("busy")
        self.refused("microphoneBusy")

    def test_the_question_stays_open_and_is_then_answered(self):
        self.page.stub("question")
        take = self.with_a_take()
        self.page.press("Record")
        self.tab.wait_for("question.asked === 1")
        before = self.tab.evaluate("[murmelo.core.turns, murmelo.core.now()]")
        self.page.told("allowMicrophone")
        self.tab.click(*self.tab.place("#picture"))
        self.tab.key("Escape")  # would be "Quit" in the menu
        self.tab.key("Escape")
        self.assertEqual(before, self.tab.evaluate("[murmelo.core.turns, murmelo.core.now()]"))
        self.tab.evaluate("question.refuse()")
        self.page.told("microphoneRefused")
        self.assertTakeIsBack(take)

        self.page.soft_key(0)
        self.page.until("Options")
        self.page.press("Record")
        self.tab.wait_for("question.asked === 2")
        self.tab.evaluate("question.allow()")
        self.page.until("Record")
        self.tab.wait_for("murmelo.core.standsStillSince < 0")
        self.page.soft_key(1)
        self.page.until("Recording")
        self.page.hear(1000)
        self.page.soft_key(1)
        self.page.until("Play")
        self.assertTrue(32000 <= len(self.page.kept("take")) != len(take[1]))

    def test_unplugged_while_recording(self):
        self.with_a_take()
        self.page.to_recording()
        self.page.hear(1500)
        self.tab.evaluate("murmelo.microphone.stream.getAudioTracks()[0].dispatchEvent(new Event('ended'))")
        self.page.told("microphoneGone")
        self.page.until("Play")
        self.assertTrue(40000 <= len(self.page.kept("take")) < len(read_wav(SPEECH)[0]))

    def test_unplugged_before_anything_was_heard(self):
        self.page.stub("silent")
        take = self.with_a_take()
        self.page.to_recording()
        self.tab.evaluate("murmelo.microphone.stream.getAudioTracks()[0].dispatchEvent(new Event('ended'))")
        self.page.told("microphoneGoneEmpty")
        self.run_out()
        self.assertTakeIsBack(take)

    def run_out(self):
        """Moves the program's clock to the end of the longest recording."""
        self.tab.evaluate("{ murmelo.core.stoodStillMs -= 21000; murmelo.core.turn(); }")

    def test_silent(self):
        self.page.stub("silent")
        take = self.with_a_take()
        self.page.to_recording()
        self.tab.wait_for("murmelo.core.texts.strip.isTelling && murmelo.core.texts.strip.line.startsWith('No sound comes from')")
        self.run_out()
        self.assertTakeIsBack(take)

    def test_hidden_while_recording(self):
        self.page.open().to_menu().to_recording()
        self.page.hear(1000)
        front = self.browser.new_tab()
        self.tab.wait_for("document.hidden")
        self.tab.wait_for("murmelo.microphone.stream === null")
        raw, cleaned = self.page.kept("take"), self.page.file(CLEANED)
        self.assertGreaterEqual(len(raw), 32000)
        self.assertEqual(len(raw) // 2 + HEADER_BYTES, len(cleaned))
        turns = self.tab.evaluate("murmelo.core.turns")
        self.tab.evaluate("new Promise((resolve) => setTimeout(resolve, 1500))")
        self.assertEqual(turns, self.tab.evaluate("murmelo.core.turns"), "in the background nothing happens")
        front.close()
        self.tab.front()
        self.page.until("Play")
        self.assertEqual((cleaned, ""), (self.page.file(CLEANED), self.page.message()))

    def test_hidden_before_anything_was_heard(self):
        self.page.stub("silent")
        take = self.with_a_take()
        self.page.to_recording()
        front = self.browser.new_tab()
        self.tab.wait_for("document.hidden")
        front.close()
        self.tab.front()
        self.page.told("tooShort")
        self.assertTakeIsBack(take)
        self.assertTrue(self.tab.evaluate("murmelo.microphone.stream === null"))

    def leave(self):
        """Sends only the event that a browser sends to a page that the user leaves."""
        self.assertFalse(self.tab.evaluate("document.hidden"))
        self.tab.evaluate("dispatchEvent(new PageTransitionEvent('pagehide', { persisted: true })), 0")

    def test_left_while_recording(self):
        self.page.open().to_menu().to_recording()
        self.page.hear(1000)
        self.leave()
        self.assertTrue(self.tab.evaluate("murmelo.microphone.stream === null"), "the recording light is out")
        cleaned = self.page.file(CLEANED)
        self.assertGreaterEqual(len(cleaned), 16000, "cleaned up in the same event")
        self.assertEqual(len(self.page.kept("take")) // 2 + HEADER_BYTES, len(cleaned))
        turns = self.tab.evaluate("murmelo.core.turns")
        self.tab.evaluate("new Promise((resolve) => setTimeout(resolve, 700))")
        self.assertEqual(turns, self.tab.evaluate("murmelo.core.turns"), "in the background nothing happens")
        self.tab.evaluate("dispatchEvent(new PageTransitionEvent('pageshow', { persisted: true })), 0")
        self.page.until("Play")
        self.assertEqual((cleaned, ""), (self.page.file(CLEANED), self.page.message()))

    def test_another_page_is_opened_while_recording(self):
        self.page.open().to_menu().to_recording()
        self.page.hear(1000)
        self.expected.append("favicon.ico")  # browsers look for the icon of a text
        self.tab.open(self.server.address + "licences.txt")
        self.page.open().until("Options")
        self.page.told("lastTake")
        self.assertGreaterEqual(len(self.page.kept("take")), 32000)

    def test_another_window_takes_over_while_recording(self):
        self.page.open().to_menu().to_recording()
        self.page.hear(1000)
        self.tab.evaluate("murmelo.showOver('otherTab')")
        self.assertGreaterEqual(len(self.page.kept("take")), 32000)

    def test_interrupted_before_the_recording(self):
        page = self.page.open().to_menu()
        page.press("Record")
        page.until("Record")
        self.tab.wait_for("murmelo.core.standsStillSince < 0 && murmelo.microphone.context?.state === 'running'")
        self.tab.evaluate("murmelo.microphone.context.suspend().then(() => 0)")
        page.soft_key(1)
        page.until("Recording")
        page.hear(500)
        page.soft_key(1)
        page.until("Play")

    def test_muted_while_recording(self):
        self.stopped_by("murmelo.microphone.stream.getAudioTracks()[0].dispatchEvent(new Event('mute'))")

    def test_interrupted_while_recording(self):
        self.stopped_by("murmelo.microphone.context.suspend().then(() => 0)")

    def test_samples_stop_coming_while_recording(self):
        self.stopped_by("murmelo.microphone.node.port.onmessage = null, 0")

    def stopped_by(self, event):
        """Ends a take in its middle by an event; the part until then is kept, and the user is told."""
        self.page.open().to_menu().to_recording()
        self.page.hear(1000)
        self.tab.evaluate(event)
        self.page.told("microphoneGone")
        self.page.until("Play")
        self.assertTrue(32000 <= len(self.page.kept("take")) < len(read_wav(SPEECH)[0]))
        self.assertTrue(self.tab.evaluate("murmelo.microphone.stream === null"))

    def test_unplugged_before_the_recording(self):
        take = self.with_a_take()
        self.page.press("Record")
        self.page.until("Record")
        self.tab.wait_for("murmelo.core.standsStillSince < 0 && murmelo.microphone.stream")
        self.tab.evaluate("murmelo.microphone.stream.getAudioTracks()[0].dispatchEvent(new Event('ended'))")
        self.page.told("microphoneGoneEmpty")
        self.assertTakeIsBack(take)
        self.assertTrue(self.tab.evaluate("murmelo.microphone.stream === null"))

    def test_a_rate_that_cannot_be_converted(self):
        self.page.stub("one-rate")
        self.tab.before_load("window.onlyRate = 4000;")
        self.refused("microphoneRate")

    def test_what_is_told_is_in_the_programs_language(self):
        self.page.open().press("Deutsch")
        self.tab.wait_for("murmelo.core.texts.entries.some((entry) => entry.isFocused && entry.text === 'Deutsch')")
        self.page.soft_key(1)
        self.page.until("Options")
        self.tab.evaluate("murmelo.freeBytes = 100000, 0")
        self.page.press("Aufnahme")
        self.page.until("Record")
        self.assertEqual("Es ist nur noch wenig Platz frei: Eine lange Aufnahme wird vielleicht abgeschnitten.", self.page.message())
        self.tab.wait_for("murmelo.core.standsStillSince < 0")
        self.page.soft_key(1)
        self.page.until("Recording")
        self.page.hear(1000)
        self.tab.evaluate("murmelo.microphone.stream.getAudioTracks()[0].dispatchEvent(new Event('ended'))")
        self.page.until("Play")
        self.assertEqual("Das Mikrofon ist nicht mehr da. Was es bis dahin gehört hat, bleibt erhalten.", self.page.message())

    def test_hidden_elsewhere(self):
        self.page.open().to_menu()
        front = self.browser.new_tab()
        self.tab.wait_for("document.hidden")
        front.close()
        self.tab.front()
        self.page.record(500)

    def test_another_rate_is_converted(self):
        self.page.stub("one-rate")
        self.page.open().to_menu()
        rate = "murmelo.microphone.context.sampleRate"
        self.page.to_recording()
        self.assertEqual(44100, self.tab.evaluate(rate))
        self.page.hear(2000)
        self.page.soft_key(1)
        self.page.until("Play")
        raw = self.page.kept("take")
        heard_ms = self.tab.evaluate("murmelo.heardMs")
        self.assertAlmostEqual(heard_ms, len(raw) / 32, delta=2)
        self.assertGreater(max(map(abs, array.array("h", raw))), 5000, "it speaks")


if __name__ == "__main__":
    unittest.main()
