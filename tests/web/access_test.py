# SPDX-License-Identifier: MIT
"""The page can be used without a mouse, by blind users, with weak sight, in any window, and as an app."""
import unittest

from murmelo import HEADER_BYTES, HOME, SPEECH, PageTest

WINDOWS = {"phone": (360, 640, 3, True), "tall phone": (412, 915, 2, True), "lying phone": (844, 390, 2, True),
           "tablet": (768, 1024, 2, True), "desktop": (1440, 900, 1, False), "square": (1000, 1000, 1, False),
           "old phone": (320, 480, 2, True), "large screen": (3840, 2160, 1, False)}
_INTERACTIVE = ("button", "link", "textbox", "checkbox", "combobox", "menuitem", "tab", "slider")
_FOCUSED = "document.activeElement === document.body ? '' : document.activeElement.textContent"
# The contrast of each visible text of the page's own parts, as [contrast, text].
_CONTRASTS = """(() => {
    const parse = (colour) => colour.match(/[\\d.]+/g).map(Number);
    const light = ([r, g, b]) => {
        const [x, y, z] = [r, g, b].map((part) => part / 255).map((part) =>
            part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
        return 0.2126 * x + 0.7152 * y + 0.0722 * z;
    };
    const ground = (element) => {
        const colour = element && parse(getComputedStyle(element).backgroundColor);
        return !element ? [255, 255, 255] : colour[3] === 0 ? ground(element.parentElement) : colour;
    };
    const isOwn = (element) => element.checkVisibility({checkVisibilityCSS: true})
        && !element.closest('#accessible, #keys, body > #message, .spoken')
        && [...element.childNodes].some((node) => node.nodeType === 3 && node.data.trim());
    return [...document.body.querySelectorAll('*')].filter(isOwn).map((element) => {
        const [one, other] = [light(parse(getComputedStyle(element).color)), light(ground(element))];
        return [(Math.max(one, other) + 0.05) / (Math.min(one, other) + 0.05), element.textContent];
    });
})()"""


class Access(PageTest):
    def assertNamed(self):
        found = [(role, name) for role, name, _ in self.tab.words() if role in _INTERACTIVE]
        self.assertGreaterEqual(len(found), 4)
        self.assertEqual([], [role for role, name in found if not name.strip()])
        return [name for _, name in found]

    def assertReadable(self, *texts):
        """Checks that all visible texts have enough contrast, and that these texts are among them."""
        found = self.tab.evaluate(_CONTRASTS)
        self.assertEqual([], [(text, contrast) for contrast, text in found if contrast < 4.5])
        for text in texts:
            self.assertIn(text, [other for _, other in found])

    def tabbed(self, times):
        """The elements that have the focus after each press of Tab."""
        texts = []
        for _ in range(times):
            self.tab.key("Tab")
            texts.append(self.tab.evaluate(_FOCUSED))
        return texts

    def test_everything_has_a_name_and_is_reached_in_order(self):
        page = self.page.open().to_menu()
        page.rest()
        wanted = ["Record", "Help", "Language", "Select", "Quit", "Save", "Open", "Mic", "Sounds", "Help"]
        self.assertEqual(wanted, self.assertNamed())
        self.assertEqual(wanted, self.tabbed(len(wanted)))

    def test_what_has_the_focus_is_pressed_by_the_keyboard(self):
        page = self.page.open().to_menu()
        page.rest()
        self.assertEqual("Help", self.tabbed(2)[1])
        self.tab.key("Enter")
        self.tab.wait_for("murmelo.core.texts.message.includes('navigation key')")
        self.tab.wait_for("document.getElementById('live').textContent.includes('navigation key')")
        self.assertEqual("Ok", self.tab.evaluate(_FOCUSED), "the focus is not lost with its button")
        self.tab.key(" ")
        self.tab.wait_for("murmelo.core.texts.entries.length === 3")
        self.assertEqual("Options", page.screen())

    def live(self):
        return "document.getElementById('live').textContent"

    def test_the_programs_focus_is_told_where_the_keyboard_is_elsewhere(self):
        page = self.page.open().to_menu()
        page.rest()
        self.tab.wait_for(self.live() + " === 'Record'")
        self.tab.key("ArrowDown")
        self.tab.wait_for(self.live() + " === 'Help'")
        self.tab.key("ArrowUp")
        self.tab.wait_for(self.live() + " === 'Record'")

    def test_the_keyboards_focus_goes_with_the_programs(self):
        page = self.page.open().to_menu()
        page.rest()
        self.assertEqual("Record", self.tabbed(1)[0])
        self.tab.key("ArrowDown")
        self.tab.wait_for(_FOCUSED + " === 'Help'")
        self.tab.key("ArrowDown")
        self.tab.wait_for(_FOCUSED + " === 'Language'")
        self.tab.key("Enter")
        self.tab.wait_for("murmelo.core.texts.entries.length === 5")
        self.tab.wait_for(_FOCUSED + " === 'English'")

    def test_progress_and_the_question_are_told_by_their_roles(self):
        page = self.page.open().to_menu()
        page.rest()
        self.assertNotIn("progressbar", [role for role, _, _ in self.tab.words()])
        self.tab.evaluate("""murmelo.accessible.show({ ...murmelo.core.texts, entries: [], softKeys: [{ text: '' }, { text: '' }, { text: '' }],
            caption: 'Working', progressPercent: 37 }, murmelo.words)""")
        self.assertEqual([("progressbar", "Working", "37")], [
            (role, name, self.tab.evaluate("document.getElementById('progress').ariaValueNow"))
            for role, name, _ in self.tab.words() if role == "progressbar"])
        self.tab.evaluate("""murmelo.accessible.show({ ...murmelo.core.texts, entries: [], message: 'Sound?', isQuestion: true }, murmelo.words)""")
        self.assertIn(("alertdialog", "Sound?"), [(role, name) for role, name, _ in self.tab.words()])
        self.tab.evaluate("murmelo.accessible.show(murmelo.core.texts, murmelo.words)")
        self.assertEqual([], [role for role, _, _ in self.tab.words() if role in ("alertdialog", "progressbar")])

    def test_work_is_told_in_few_steps(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        page.effect(1)
        page.rest()
        self.tab.evaluate("""{
            murmelo.told = [];
            const show = murmelo.accessible.show;
            murmelo.accessible.show = function (texts, words) {
                murmelo.told.push([texts.screen, texts.progressPercent]);
                show.call(this, texts, words);
            };
        }""")
        self.tab.call("Emulation.setCPUThrottlingRate", rate=20)  # a slow processor, so that the work takes several frames
        page.soft_key(1)
        page.until("Playing")
        self.tab.call("Emulation.setCPUThrottlingRate", rate=1)
        page.until("Play")
        told = self.tab.evaluate("murmelo.told")
        for screen in ("Process", "Playing"):
            steps = [percent for name, percent in told if name == screen and percent >= 0]
            self.assertLessEqual(len(steps), 9, told)
            self.assertEqual(sorted(set(steps)), steps, told)
        self.assertTrue(any(percent > 0 for _, percent in told), told)

    def test_a_screen_reader_hears_title_and_message(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        self.tab.wait_for("document.getElementById('live').textContent === 'No effect'")
        page.effect(1)
        self.tab.wait_for("document.getElementById('live').textContent === 'Robot'")
        live = [(role, properties.get("live")) for role, _, properties in self.tab.words() if "live" in properties]
        self.assertIn("polite", [kind for _, kind in live])
        self.assertEqual(["Previous effect", "Next effect"], self.assertNamed()[:2])
        self.tab.press("#save")
        page.until("Save")
        self.tab.wait_for("document.getElementById('live').textContent.includes('rec_00000.wav')")

    def test_the_dialog_keeps_the_focus_and_escape_closes_it(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        self.tab.press("#save")
        page.until("Save")
        self.tab.press("#sounds")
        self.tab.wait_for("document.querySelector('dialog').open")
        self.assertIn(("dialog", "Sounds"), [(role, name) for role, name, _ in self.tab.words()])
        inside = self.tab.evaluate("[...document.querySelectorAll('dialog button, dialog a')].filter((one) => one.checkVisibility({checkVisibilityCSS: true})).length")
        for _ in range(inside + 2):
            self.tab.key("Tab")
            self.assertTrue(self.tab.evaluate("document.activeElement === document.body || Boolean(document.activeElement.closest('dialog'))"))
        self.assertReadable("Sounds", "Close")
        self.tab.key("Escape")
        self.tab.wait_for("!document.querySelector('dialog').open")
        self.assertEqual("Save", page.screen(), "the program has not heard of it")

    def test_a_message_is_told_and_shown_in_a_dialog_that_covers_the_strip(self):
        page = self.page.open().to_menu()
        self.tab.evaluate("{ window.undone = 0; murmelo.tell('deleted', 'undo', () => undone++); }")
        page.told("deleted")
        self.assertIn(("status", ""), [(role, name) for role, name, _ in self.tab.words()])
        self.assertIn("Undo", self.assertNamed())
        self.tab.evaluate("murmelo.openSounds(), 0")
        self.tab.wait_for("document.querySelector('dialog').open")
        self.assertReadable("Sounds", "Close", "Deleted: {1}", "Undo")
        page.press("Undo")
        self.tab.wait_for("undone === 1")

    def test_the_end_is_readable(self):
        page = self.page.open().to_menu()
        page.press("Quit")
        self.tab.wait_for("!document.getElementById('over').hidden")
        self.assertEqual("Start again", self.tab.evaluate(_FOCUSED))
        self.assertEqual(["Start again"], [name for role, name, _ in self.tab.words() if role in _INTERACTIVE], "the rest is inert")
        self.assertIn(("alertdialog", "Murmelo has ended. Your sounds are kept."),
                      [(role, name) for role, name, _ in self.tab.words()])
        self.assertReadable("Start again", "Murmelo has ended. Your sounds are kept.")

    def test_the_sheet_keeps_the_focus_and_gives_it_back(self):
        page = self.page.open().to_menu()
        page.rest()
        self.tab.evaluate("document.getElementById('help').focus()")
        self.tab.key("Enter")
        self.tab.wait_for("murmelo.core.texts.strip.sheet")
        self.assertEqual("Close", self.tab.wait_for(_FOCUSED))
        self.assertTrue([name for role, name, _ in self.tab.words() if role == "dialog" and name.startswith("Help. R records")])
        self.tab.wait_for(self.live() + ".includes('records and stops')")
        self.tab.key("ArrowDown")
        self.tab.key("Escape")
        self.tab.wait_for("!murmelo.core.texts.strip.sheet")
        self.assertEqual("help", self.tab.wait_for("document.activeElement.id"))
        self.assertEqual(["Record"], self.tab.evaluate("murmelo.core.texts.entries.filter((one) => one.isFocused).map((one) => one.text)"))

    def test_strip_and_picture_fit(self):
        page = self.page.open().to_menu()
        turned = {"turned " + name: (height, width, ratio, mobile) for name, (width, height, ratio, mobile) in WINDOWS.items()}
        for name, (width, height, ratio, mobile) in {**WINDOWS, **turned}.items():
            self.tab.size(width, height, ratio, mobile)
            self.tab.wait_for("innerWidth === %d && innerHeight === %d" % (width, height))
            self.tab.wait_for(_PICTURE_FITS)
        page.rest()

    def test_nothing_lies_below_a_notch_or_a_rounded_corner(self):
        page = self.page.open().to_menu()
        page.rest()
        self.tab.evaluate("murmelo.tell('microphoneInsecure')")
        for (width, height), insets in (((390, 844), {"top": 47, "bottom": 34}), ((844, 390), {"left": 47, "right": 47, "bottom": 21})):
            self.tab.size(width, height, 3, True)
            self.tab.wait_for("innerWidth === %d" % width)
            for area in (insets, {}):
                self.tab.safe_area(**area)
                top, left, bottom, right = (area.get(side, 0) for side in ("top", "left", "bottom", "right"))
                self.tab.wait_for(_PICTURE_FITS)
                self.tab.wait_for("""['picture', 'strip', 'save', 'open', 'microphones', 'sounds', 'help'].every((id) => {
                    const box = document.getElementById(id).getBoundingClientRect();
                    return box.top >= %d && box.left >= %d && box.bottom <= innerHeight - %d && box.right <= innerWidth - %d;
                })""" % (top, left, bottom, right), seconds=20)

    def test_the_buttons_of_the_list_have_names_of_their_own_and_each_deletion_is_undone(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        for _ in range(2):
            self.tab.press("#save")
            page.until("Save")
            page.told("saved")
            page.soft_key(1)
            page.until("Options")
            page.soft_key(2)
            page.until("Play")
        self.tab.press("#sounds")
        self.tab.wait_for("document.querySelector('dialog').open")
        names = [name for role, name, _ in self.tab.words() if role == "button"]
        self.assertEqual(len(names), len(set(names)), names)
        self.assertIn("Play: murmelo-none-00001.wav (No effect, 5.6 s)", names)
        older, newer = page.file("rec_00000.wav"), page.file("rec_00001.wav")
        x, y = self.tab.evaluate("""(() => {
            const box = [...document.querySelectorAll('dialog button')].find((one) => one.textContent === 'Delete').getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2];
        })()""")
        self.tab.click(x, y, times=2)
        page.told("deleted")
        self.assertEqual((older, None), (page.file("rec_00000.wav"), page.file("rec_00001.wav")), "one double tap, one sound")
        page.press("Delete")
        self.assertIsNone(page.file("rec_00000.wav"))
        self.tab.evaluate("murmelo.sounds.keep('%srec_00001.wav', {bytes: new Uint8Array(%d), effect: 2, when: 0})"
                          % (HOME, HEADER_BYTES))
        for name in ("murmelo-none-00001.wav", "murmelo-none-00000.wav"):
            self.tab.wait_for("document.querySelector('#message span').textContent === 'Deleted: %s'" % name)
            page.press("Undo")
            self.tab.wait_for("document.querySelector('#message span').textContent !== 'Deleted: %s'" % name)
        self.assertEqual((older, newer), (page.file("rec_00000.wav"), page.file("rec_00002.wav")),
                         "a sound that has the number by now stays")

    def test_less_motion_is_fewer_pictures(self):
        self.tab.media(prefers_reduced_motion="reduce")
        page = self.page.open().to_menu()
        page.use(SPEECH)
        page.rest()
        self.tab.evaluate("""{
            window.painted = [];
            const paint = murmelo.core.paint;
            murmelo.core.paint = () => (painted.push(performance.now()), paint.call(murmelo.core));
        }""")
        for _ in range(3):
            page.effect(1)
        times = self.tab.evaluate("painted")
        self.assertGreaterEqual(len(times), 4)
        self.assertGreaterEqual(min(later - sooner for sooner, later in zip(times, times[1:])), 249)
        self.assertTrue(self.tab.evaluate("""(() => {
            const shown = murmelo.picture.pixels.getImageData(0, 0, 240, 400).data;
            return murmelo.core.pixels().every((value, i) => i % 4 === 3 || value === shown[i]);
        })()"""), "the last picture is there")

    def test_it_can_be_installed(self):
        self.page.open().to_menu()
        self.tab.wait_for("navigator.serviceWorker.ready.then(() => true)")
        self.assertEqual([], self.tab.call("Page.getAppManifest")["errors"])
        self.assertEqual([], self.tab.call("Page.getInstallabilityErrors")["installabilityErrors"])


_PICTURE_FITS = """(() => {
    const [picture, bar] = ['picture', 'strip'].map((id) => document.getElementById(id).getBoundingClientRect());
    const fits = (box) => box.left >= 0 && box.top >= 0 && box.right <= innerWidth + 0.5 && box.bottom <= innerHeight + 0.5;
    const apart = picture.top >= bar.bottom - 0.5 || picture.left >= bar.right - 0.5;
    const whole = Math.abs(picture.width / picture.height - 0.75) < 0.01;
    const sharp = [picture.width, picture.height].every((size) => Math.abs(size * devicePixelRatio - Math.round(size * devicePixelRatio)) < 0.05); // boxes are told in 64ths
    const { scrollWidth, scrollHeight } = document.documentElement;
    const still = scrollWidth <= innerWidth && scrollHeight <= innerHeight; // nothing to scroll
    return picture.width > 100 && still && fits(picture) && fits(bar) && apart && whole && sharp;
})()"""
if __name__ == "__main__":
    unittest.main()
