# SPDX-License-Identifier: MIT
"""The page works without a network, in two tabs, with a full store, and when there is a new version."""
import hashlib
import json
import os
import re
import shutil
import unittest

from murmelo import FOLDER, HEADER_BYTES, HOME, SPEECH, Murmelo, PageTest, read_wav, temporary_folder
from served import Served

_INSTALLED = "navigator.serviceWorker.ready.then((registration) => registration.active.state === 'activated')"


class Visits(PageTest):
    OPTIONS = {"microphone": SPEECH}

    def test_offline_from_the_second_start(self):
        page = self.page.open().to_menu()
        self.tab.wait_for(_INSTALLED)
        self.server.stop()
        self.browser.offline()
        self.addCleanup(self.browser.offline, False)
        page.reload().until("Options")
        self.assertFalse(self.tab.evaluate("navigator.onLine"))
        page.record(500)
        self.tab.press("#save")
        page.until("Save")
        self.tab.press("#help")
        self.assertEqual("200 true", self.tab.evaluate(
            "fetch('style/page.css').then((reply) => `${reply.status} ${reply.headers.has('content-type')}`)"))

    def over(self, tab):
        """The sentence that covers a page that has stopped."""
        return tab.wait_for("!document.getElementById('over').hidden && document.querySelector('#over p').textContent")

    def test_a_second_tab_says_so_and_takes_over(self):
        self.page.open().to_menu()
        other = Murmelo(self.browser.new_tab(), self.server.address)
        other.tab.open(other.address)
        self.assertEqual("Murmelo is open in another tab.", self.over(other.tab))
        self.assertTrue(self.tab.evaluate("murmelo.core.running"))
        self.assertFalse(other.tab.evaluate("murmelo.core.running"))
        other.press("Use it here")
        other.running().until("Options")
        self.assertEqual("Murmelo is open in another tab.", self.over(self.tab))
        self.assertFalse(self.tab.evaluate("murmelo.core.running"))
        turns = self.tab.evaluate("murmelo.core.turns")
        other.use(SPEECH)
        self.tab.front()
        self.page.press("Use it here")
        self.page.running().until("Options")
        self.assertEqual(read_wav(SPEECH)[0], self.page.kept("take"))
        self.over(other.tab)
        self.assertGreater(turns, 0)
        other.tab.close()

    def test_covers_are_dialogs_in_the_language_of_the_settings(self):
        page = self.page.open()
        page.press("Deutsch")
        self.tab.wait_for("murmelo.core.texts.entries.some((entry) => entry.isFocused && entry.text === 'Deutsch')")
        page.soft_key(1)
        page.until("Options")
        other = self.browser.new_tab()
        other.open(self.server.address)
        self.assertEqual("Murmelo ist in einem anderen Tab geöffnet.", self.over(other))
        self.assertEqual([("button", "Hier verwenden")], [(role, name) for role, name, _ in other.words() if role == "button"])
        self.assertIn(("alertdialog", "Murmelo ist in einem anderen Tab geöffnet."), [(role, name) for role, name, _ in other.words()])
        self.assertEqual(["de", "again"], other.evaluate("[document.documentElement.lang, document.activeElement.id]"))
        other.close()
        self.tab.before_load("WebAssembly.instantiate = WebAssembly.instantiateStreaming = async () => { throw new Error('none'); };")
        self.expected += ["none", "abort"]
        self.tab.front()
        self.tab.reload()
        self.assertEqual("Murmelo kann in diesem Browser nicht starten.", self.over(self.tab))
        self.assertEqual("Neu starten", self.tab.evaluate("document.getElementById('again').textContent"))

    def test_without_settings_the_browsers_language_is_spoken(self):
        self.tab.before_load("""WebAssembly.instantiate = WebAssembly.instantiateStreaming = async () => { throw new Error('none'); };
            Object.defineProperty(navigator, 'language', { value: 'fr-CA' });""")
        self.expected += ["none", "abort"]
        self.tab.open(self.page.address)
        self.assertEqual("Murmelo ne peut pas être lancé dans ce navigateur.", self.over(self.tab))

    def test_the_end_starts_again(self):
        page = self.page.open().to_menu()
        page.press("Quit")
        self.assertEqual("Murmelo has ended. Your sounds are kept.", self.over(self.tab))
        page.press("Start again")
        page.running().until("Options")

    def test_the_first_picture_does_not_wait_for_the_database(self):
        self.tab.before_load("""{
            const open = IDBFactory.prototype.open;
            const made = new Promise((resolve) => { window.makeDatabase = resolve; });
            IDBFactory.prototype.open = function (...names) {
                const request = {};
                made.then(() => {
                    const real = open.apply(this, names);
                    for (const event of ['onsuccess', 'onerror', 'onblocked', 'onupgradeneeded']) {
                        real[event] = () => (Object.assign(request, { result: real.result }), request[event]?.());
                    }
                });
                return request;
            };
        }""")
        self.tab.open(self.page.address)
        self.tab.wait_for("murmelo.core.texts.screen === 'FirstLang'")
        self.assertTrue(self.tab.evaluate("murmelo.store.database === null"))
        self.tab.evaluate("makeDatabase()")
        self.tab.wait_for("murmelo.store.database")
        page = self.page.running().to_menu()
        page.use(SPEECH)
        self.tab.wait_for("murmelo.sounds.kept.has('take')")

    def test_a_full_store_is_told_and_nothing_is_lost(self):
        self.page.stub("watching")
        self.tab.quota(20000, self.server.origin)
        self.expected.append("QuotaExceeded")  # the service worker has no room for its files either
        page = self.page.open().to_menu()
        page.use(SPEECH)
        page.told("storeFull")
        self.tab.press("#save")
        page.until("Save")
        page.told("storeFull")
        saved = page.file("rec_00000.wav")
        self.assertEqual(None, page.kept(HOME + "rec_00000.wav"))
        page.press(page.word("share"))
        self.tab.wait_for("noted.shared.length")
        self.assertTrue(saved == bytes(self.tab.evaluate("noted.shared[0].bytes")))
        self.tab.press("#sounds")
        self.assertIn("murmelo-none-00000.wav", self.tab.evaluate("document.querySelector('dialog').textContent"))
        self.assertEqual(read_wav(SPEECH)[0], bytes(self.tab.evaluate("Array.from(murmelo.sounds.kept.get('take').bytes)"))[HEADER_BYTES:])


    def test_an_aborted_transaction_is_told_and_nothing_is_lost(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        self.tab.wait_for("murmelo.store.database")
        self.tab.evaluate("""{
            murmelo.commit = IDBTransaction.prototype.commit;
            IDBTransaction.prototype.commit = function () {
                this.abort();
            };
        }""")
        self.tab.press("#save")
        page.until("Save")
        page.told("storeFull")
        saved = page.file("rec_00000.wav")
        self.assertIsNone(page.kept(HOME + "rec_00000.wav"))
        page.press(page.word("share"))  # without a window there is no share sheet: the file is downloaded
        with open(self.browser.downloaded("murmelo-none-00000.wav"), "rb") as file:
            self.assertTrue(saved == file.read())

    def test_what_cannot_be_deleted_is_told(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        self.tab.press("#save")
        page.until("Save")
        page.told("saved")
        self.tab.evaluate("{ IDBTransaction.prototype.commit = function () { this.abort(); }; }")
        self.tab.press("#sounds")
        page.press(page.word("delete"))
        page.told("notDeleted")
        page.press(page.word("forget"))
        page.told("notDeleted")
        self.assertIsNotNone(page.kept(HOME + "rec_00000.wav"))

    def test_the_free_space_is_asked_again(self):
        page = self.page.open().to_menu()
        self.tab.evaluate("{ navigator.storage.estimate = async () => ({ quota: 500000, usage: 100000 }); }")
        page.use(SPEECH)
        self.tab.wait_for("murmelo.freeBytes === 400000")
        page.soft_key(0)
        page.until("Options")
        page.press("Record")
        page.told("littleRoom")

    def test_what_the_last_visit_left_is_told_however_slow_the_page_is(self):
        page = self.page.open().to_menu()
        page.use(SPEECH)
        self.tab.before_load("""{
            window.letOn = () => {};
            const wait = new Promise((resolve) => { window.letOn = resolve; });
            const define = (name, value) => Object.defineProperty(window, name, { set: value, configurable: true });
            define('murmelo', (page) => {
                Object.defineProperty(window, 'murmelo', { value: page });
                const addLater = page.addLater.bind(page);
                page.addLater = () => wait.then(addLater);
            });
        }""")
        self.tab.reload()
        page.until("Options")
        self.assertEqual("", page.message())
        self.tab.evaluate("letOn(), 0")
        page.told("lastTake")


class Copies(PageTest):
    """Two copies of the page on one host."""

    def setUp(self):
        super().setUp()
        folder = temporary_folder(self)
        for name in ("one", "two"):
            shutil.copytree(FOLDER, os.path.join(folder, name))
        self.server.stop()
        self.server = Served(folder)
        self.server.start()
        self.addCleanup(self.server.stop)

    def test_each_has_its_own_sounds_files_and_tab(self):
        one = Murmelo(self.tab, self.server.address + "one/").open().to_menu()
        one.use(SPEECH)
        self.tab.press("#save")
        one.until("Save")
        one.told("saved")
        self.tab.wait_for(_INSTALLED)
        two = Murmelo(self.browser.new_tab(), self.server.address + "two/").open().to_menu()
        two.tab.wait_for(_INSTALLED)
        self.assertEqual([], [name for name in two.files() if name.startswith("rec_")])
        self.assertEqual("", two.message())
        self.assertTrue(self.tab.evaluate("murmelo.core.running"))
        caches = sorted(name.rsplit(" ", 1)[0] for name in two.tab.evaluate("caches.keys()"))
        self.assertEqual(["murmelo /one/", "murmelo /two/"], caches)
        two.tab.close()
        one.reload().until("Options")
        self.assertEqual(["rec_00000.wav"], [name for name in one.files() if name.startswith("rec_")])


class Update(PageTest):
    OPTIONS = {"microphone": SPEECH}

    def setUp(self):
        super().setUp()
        self.folder = os.path.join(temporary_folder(self), "page")
        shutil.copytree(FOLDER, self.folder)
        self.server.stop()
        self.server = Served(self.folder)
        self.server.start()
        self.addCleanup(self.server.stop)
        self.page.address = self.server.address

    def publish(self):
        """Puts another version into the folder: its page has `window.isNewer`."""
        name, worker = "page/main.js", os.path.join(self.folder, "sw.js")
        with open(os.path.join(self.folder, name), "ab") as file:
            file.write(b"window.isNewer = true;\n")
        with open(os.path.join(self.folder, name), "rb") as file:
            digest = hashlib.sha256(file.read()).hexdigest()
        with open(worker, encoding="utf-8") as file:
            text = file.read()
        text, count = re.subn(r'("%s": )"[0-9a-f]+"' % name, r'\1"%s"' % digest, text)
        text, again = re.subn(r"const VERSION = .*;", "const VERSION = %s;" % json.dumps(digest[:16]), text)
        self.assertEqual((1, 1), (count, again))
        with open(worker, "w", encoding="utf-8") as file:
            file.write(text)

    def test_a_new_version_is_told_in_the_menu_and_taken_on_the_tap(self):
        page = self.page.open().to_menu()
        self.tab.wait_for(_INSTALLED)
        page.reload().until("Options")
        self.tab.wait_for("navigator.serviceWorker.controller")
        page.press("Record")
        page.until("Record")
        self.tab.wait_for("murmelo.core.standsStillSince < 0")
        self.publish()
        self.tab.evaluate("navigator.serviceWorker.getRegistration().then((registration) => registration.update()).then(() => 0)")
        self.tab.wait_for("murmelo.update.waiting")
        page.rest()
        self.assertEqual("", page.message())
        page.soft_key(2)
        page.until("Options")
        page.told("newVersion")

        page.reload().until("Options")
        self.assertIsNone(self.tab.evaluate("window.isNewer"), "not without the tap")
        page.told("newVersion")
        page.press(page.word("update"))
        self.tab.wait_for("window.isNewer")
        page.running().until("Options")
        self.tab.wait_for("caches.keys().then((names) => names.length === 1)")
        self.assertEqual("", page.message())

    def test_leaving_the_menu_right_after_the_tap_keeps_this_version(self):
        page = self.page.open().to_menu()
        self.tab.wait_for(_INSTALLED)
        page.reload().until("Options")
        self.publish()
        self.tab.evaluate("navigator.serviceWorker.getRegistration().then((registration) => registration.update()).then(() => 0)")
        page.told("newVersion")
        self.tab.evaluate("""[%s, "Record"].forEach((text) =>
            [...document.querySelectorAll("button")].find((one) => one.textContent === text).click())""" % json.dumps(page.word("update")))
        page.until("Record")
        page.told("notNow")
        self.assertEqual("installed", self.tab.evaluate("murmelo.update.waiting.state"))
        self.assertIsNone(self.tab.evaluate("window.isNewer"))

    def test_a_request_that_does_not_end_holds_no_new_version_up(self):
        page = self.page.open().to_menu()
        self.tab.wait_for(_INSTALLED)
        page.reload().until("Options")
        self.tab.wait_for("navigator.serviceWorker.controller")
        self.publish()
        self.tab.evaluate("navigator.serviceWorker.getRegistration().then((registration) => registration.update()).then(() => 0)")
        page.told("newVersion")
        os.mkfifo(os.path.join(self.folder, "endless"))  # the server waits for a writer
        self.expected.append("endless")
        self.tab.evaluate("void fetch('endless').catch(() => {})")
        page.press(page.word("update"))
        self.tab.wait_for("window.isNewer")
        page.running().until("Options")
        self.tab.wait_for("caches.keys().then((names) => names.length === 1)")

    def test_a_page_without_its_service_worker_takes_a_new_version_too(self):
        page = self.page.open().to_menu()
        self.tab.wait_for(_INSTALLED)
        self.tab.reload(past_cache=True)  # the service worker does not control a page that was loaded so
        page.running().until("Options")
        self.assertIsNone(self.tab.evaluate("navigator.serviceWorker.controller"))
        self.tab.wait_for("murmelo.update")
        self.publish()
        self.tab.evaluate("navigator.serviceWorker.getRegistration().then((registration) => registration.update()).then(() => 0)")
        page.told("newVersion")
        page.press(page.word("update"))
        self.tab.wait_for("window.isNewer")
        page.running().until("Options")

    def test_no_sound_is_asked_from_the_network(self):
        page = self.page.open().to_menu()  # with a tap, which unlocks the speaker
        self.tab.wait_for("murmelo.speaker.audio.src.startsWith('blob:')")
        self.assertEqual([], self.tab.evaluate(
            "performance.getEntriesByType('resource').map((entry) => entry.name).filter((name) => name.endsWith('.wav'))"))
        page.until("Options")

    def test_a_version_that_came_only_in_part_is_not_taken(self):
        page = self.page.open().to_menu()
        self.tab.wait_for(_INSTALLED)
        self.publish()
        with open(os.path.join(self.folder, "page/dialog.js"), "ab") as file:
            file.write(b"// of yet another version\n")
        self.expected.append("not of this version")
        page.reload().until("Options")
        self.assertEqual("installing redundant", self.tab.evaluate("""new Promise(async (resolve) => {
            const registration = await navigator.serviceWorker.getRegistration();
            registration.onupdatefound = () => {
                const worker = registration.installing;
                const first = worker.state;
                worker.onstatechange = () => resolve(`${first} ${worker.state}`);
            };
            registration.update().catch(() => {});
        })"""))
        self.assertIsNone(self.tab.evaluate("window.isNewer"))
        self.assertEqual("", page.message())


if __name__ == "__main__":
    unittest.main()
