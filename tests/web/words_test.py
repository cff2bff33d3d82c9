# SPDX-License-Identifier: MIT
"""The page uses only calls and words that the program in WebAssembly has."""
import glob
import os
import re
import unittest

from murmelo import LANGUAGES, SOURCE, PageTest


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def scripts():
    """The page's scripts, without their comments."""
    text = "\n".join(read(path) for path in sorted(glob.glob(os.path.join(SOURCE, "web/page/*.js"))))
    return re.sub(r"//.*|/\*.*?\*/", "", text)


class Calls(PageTest):
    def setUp(self):
        super().setUp()
        self.page.open()
        self.built = set(self.tab.evaluate(
            "Object.keys(murmelo.core.program).filter((name) => name.startsWith('_murmelo'))"))

    def test_the_types_list_what_the_module_offers(self):
        listed = set(re.findall(r"^    (_murmelo\w+)\(", read(SOURCE, "web/types/murmelo.d.ts"), re.M))
        self.assertEqual(self.built, listed)

    def test_the_page_uses_every_call_and_no_other(self):
        self.assertEqual(self.built, set(re.findall(r"_murmelo\w+", scripts())))


class Words(PageTest):
    def setUp(self):
        super().setUp()
        self.page.open()
        self.known = set(self.tab.evaluate("Object.keys(murmelo.words)"))
        tables = {os.path.basename(path): set(re.findall(r'^    \{"(\w+)",', read(path), re.M))
                  for path in glob.glob(os.path.join(SOURCE, "src/platform/host/*Words.cpp"))}
        self.of_desktop = tables.pop("DesktopWords.cpp")
        self.assertGreater(len(self.of_desktop), 10)
        # Reasons are found by their English text, and only on the desktop.
        self.assertEqual([], [name for name in tables.pop("ReasonWords.cpp") if not name.startswith("why")])
        self.assertEqual(self.known, set().union(*tables.values()))

    def test_every_word_of_the_page_exists(self):
        used = set(re.findall(r"\bwords\.(\w+)", scripts())) | set(re.findall(r"\b(?:tell|showOver)\('(\w+)'", scripts()))
        self.assertGreater(len(used), 15)
        self.assertEqual(set(), used - self.known)

    def test_what_the_platform_tells_has_words(self):
        sources = [read(path) for path in sorted(glob.glob(os.path.join(SOURCE, "src/platform/osp/*.cpp")))
                   + sorted(glob.glob(os.path.join(SOURCE, "src/platform/web/*.cpp")))]
        text = "\n".join(sources)
        told = set(re.findall(r'\{"(\w+)", \{', text)) | set(re.findall(r'giveRecordingUp\("(\w+)"', text))
        self.assertGreater(len(told), 15)
        self.assertLessEqual({"cutShort", "littleRoom", "notNow", "firstSeconds"}, told)
        self.assertEqual(set(), told - self.known)

    def test_what_is_said_without_the_program_is_there_in_every_language(self):
        early = self.tab.evaluate("""[...document.getElementById('early').children].map((text) =>
            [text.lang, text.title === murmelo.core.words(text.lang).startAgain, text.textContent])""")
        self.assertEqual([(language, True) for language in LANGUAGES], [(lang, same) for lang, same, _ in early])
        self.assertEqual(len(LANGUAGES), len({text for _, _, text in early}))

    def test_every_word_is_used_by_a_host(self):
        sources = [scripts()]
        for folder in ("files", "osp", "web", "sdl", "strip"):
            for path in sorted(glob.glob(os.path.join(SOURCE, "src/platform", folder, "*.cpp"))):
                sources.append(read(path))
        quoted = set(re.findall(r"""['"](\w+)['"]""", "\n".join(sources)))
        used = quoted | set(re.findall(r"\bwords\.(\w+)", sources[0]))
        if any('text("screen" + ' in source for source in sources):
            used |= {"screen" + name for name in re.findall(r'"(\w+)"', read(SOURCE, "src/app/common/assembly/ScreenTable.cpp"))}
        self.assertEqual(set(), (self.of_desktop | self.known) - used)


if __name__ == "__main__":
    unittest.main()
