# SPDX-License-Identifier: MIT
"""The strip in the page: its heads, buttons, messages and sheets, by finger and by keyboard, in every language."""
import unittest

from murmelo import LANGUAGES, SPEECH, PageTest

_NAMES = "[...document.getElementById('keys').children].map((button) => button.textContent)"
_SHEET = "murmelo.core.texts.strip.sheet"
WORDS = {"en": ["Save", "Open", "Mic", "Sounds", "Help"], "de": ["Speichern", "Öffnen", "Mikro", "Sounds", "Hilfe"],
         "es": ["Guardar", "Abrir", "Micro", "Sonidos", "Ayuda"], "fr": ["Sauver", "Ouvrir", "Micro", "Sons", "Aide"],
         "it": ["Salva", "Apri", "Mic", "Audio", "Guida"]}


class Strip(PageTest):
    OPTIONS = {"microphone": SPEECH}

    def title(self):
        return self.tab.evaluate("murmelo.core.texts.title")

    def tap_button(self, name):
        """Taps at the place of the button with that name, on the canvas below it."""
        x, y = self.tab.wait_for("""(() => {
            const box = [...document.querySelectorAll('#keys button, #accessible button')].find((one) =>
                one.textContent === %r)?.getBoundingClientRect();
            return box && [box.x + box.width / 2, box.y + box.height / 2];
        })()""" % name)
        self.assertEqual("CANVAS", self.tab.evaluate("document.elementFromPoint(%f, %f).tagName" % (x, y)))
        self.tab.click(x, y)

    def test_the_heads_go_to_their_effects(self):
        page = self.page.open().to_menu()
        self.assertNotIn("Robot", self.tab.evaluate(_NAMES))
        page.use(SPEECH)
        self.tab.wait_for(_NAMES + ".includes('Robot')")
        self.tab.evaluate("window.kept = document.getElementById('save'), 0")
        self.tap_button("Drunk")
        self.tab.wait_for("murmelo.core.texts.title === 'Drunk'")
        self.tab.wait_for("document.querySelector('#keys [aria-current]').textContent === 'Drunk'")
        self.tab.key("3")
        self.tab.wait_for("murmelo.core.texts.title === 'Backwards'")
        self.tab.evaluate("[...document.querySelectorAll('#keys button')].find((one) => one.textContent === 'Robot').focus()")
        self.tab.key("Enter")
        self.tab.wait_for("murmelo.core.texts.title === 'Robot'")
        self.assertTrue(self.tab.evaluate("kept === document.getElementById('save')"), "a button stays while its name does")

    def test_saving_is_told_with_an_action(self):
        self.page.stub("watching")
        page = self.page.open().to_menu()
        self.assertEqual("true", self.tab.evaluate("document.getElementById('save').ariaDisabled"))
        self.tap_button("Save")
        page.told("nothingToSave")
        page.use(SPEECH)
        self.tab.wait_for("document.getElementById('save').ariaDisabled === null")
        self.tap_button("Save")
        page.until("Save")
        page.told("saved")
        self.tap_button("Share")
        self.tab.wait_for("noted.shared.length === 1")
        self.tab.wait_for("!murmelo.core.texts.strip.isTelling")

    def test_help_lies_over_the_picture(self):
        page = self.page.open().to_menu()
        page.rest()
        for close in (lambda: self.tap_button("Close"), lambda: self.tap_button("Help"), lambda: self.tab.key("Escape")):
            self.tab.press("#help")
            self.tab.wait_for(_SHEET)
            close()
            self.tab.wait_for("!" + _SHEET)
            page.rest()
        self.assertEqual("Options", page.screen())

    def test_the_level_is_shown_while_recording(self):
        page = self.page.open().to_menu().to_recording()
        page.hear(500)
        self.tab.wait_for("murmelo.core.texts.strip.line === 'Fake Default Audio Input'")
        self.tab.wait_for("""(() => {
            const row = murmelo.picture.pixels.getImageData(6, 26, 216, 1).data;
            let green = 0;
            for (let at = 0; at < row.length; at += 4) {
                green += row[at + 1] > 180 && row[at] < 120 ? 1 : 0;
            }
            return green > 20;
        })()""")
        page.hear(1500)
        page.soft_key(1)
        page.until("Play")
        page.rest()

    def test_another_microphone_is_chosen_and_remembered(self):
        page = self.page.open().to_menu()
        page.record(500)
        page.soft_key(0)
        page.until("Options")
        self.tab.press("#microphones")
        self.tab.wait_for(_SHEET)
        self.tap_button("Fake Audio Input 2")
        self.tab.wait_for("murmelo.core.texts.strip.line === 'Microphone: Fake Audio Input 2'")
        self.tab.wait_for("murmelo.store.all().then((all) => all.has('/config/microphone'))")
        page.reload().until("Options")
        page.to_recording()
        self.assertEqual("Fake Audio Input 2", self.tab.evaluate("murmelo.microphone.stream.getAudioTracks()[0].label"))
        self.tab.wait_for("murmelo.core.texts.strip.line === 'Fake Audio Input 2'")

    def test_the_last_take_is_brought_back_by_a_key(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        page.reload().until("Options")
        self.tab.key("z", "Control")
        page.until("Play")

    def test_the_names_follow_the_programs_language(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        page.soft_key(0)
        page.until("Options")
        page.press("Language")
        self.tab.wait_for("murmelo.core.texts.entries.length === 5")
        self.tab.key("ArrowDown")
        self.tab.wait_for("murmelo.core.texts.entries[1]?.isFocused")
        self.tab.key("Enter")
        self.tab.wait_for("document.documentElement.lang === 'de'")
        self.assertEqual(WORDS["de"], self.tab.evaluate(_NAMES + ".slice(-5)"))
        page.press("Aufnahme")
        page.until("Record")
        page.soft_key(1)
        page.until("Recording")
        page.hear(1500)
        page.soft_key(1)
        page.until("Play")
        self.tab.wait_for(_NAMES + ".includes('Roboter')")

    def test_the_buttons_have_names_in_every_language(self):
        page = self.page.open()
        for index, language in enumerate(LANGUAGES):
            page.reload().until("FirstLang")
            for _ in range(index):
                self.tab.key("ArrowDown")
            self.tab.wait_for("murmelo.core.texts.entries[%d]?.isFocused" % index)
            self.tab.key("Enter")
            page.until("Options")
            self.tab.wait_for("murmelo.core.texts.language === %r" % language)
            self.assertEqual(WORDS[language], self.tab.evaluate(_NAMES + ".slice(-5)"))
            self.tab.evaluate("new Promise((done) => { indexedDB.deleteDatabase(murmelo.store.name).onsuccess = done; }).then(() => 0)")


if __name__ == "__main__":
    unittest.main()
