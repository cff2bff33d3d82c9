# SPDX-License-Identifier: MIT
"""pack-web joins the modules that the first picture needs; policy and manifest of the page are as intended."""
import html.parser
import importlib.machinery
import importlib.util
import json
import os
import unittest

SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../..")
TOOL = os.path.join(SOURCE, "tools/pack-web")


def packer():
    loader = importlib.machinery.SourceFileLoader("pack_web", TOOL)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


class Join(unittest.TestCase):
    def setUp(self):
        self.files = {
            "index.html": b"<title>",
            "page/core.js": b"import program from '../program.js';\n\nexport const MENU = 1;\n",
            "page/main.js": b"import { MENU } from './core.js';\nimport { Sounds } from './sounds.js';\n\n"
                            b"const page = new Sounds(MENU);\nimport('./voice.js');\n",
            "page/sounds.js": b"import { MENU } from './core.js';\n\nexport class Sounds {\n    export = MENU;\n}\n",
            "page/voice.js": b"import { MENU } from './core.js';\nimport { Box } from './box.js';\n",
            "page/box.js": b"export class Box {}\n",
        }

    def join(self):
        packer().join_first_modules(self.files)
        return self.files["page/main.js"].decode()

    def test_each_module_stands_once_and_after_those_that_it_imports(self):
        self.assertEqual(
            "import program from '../program.js';\n\nconst MENU = 1;\n"
            "\n\nclass Sounds {\n    export = MENU;\n}\n"
            "\n\nconst page = new Sounds(MENU);\nimport('./voice.js');\n"
            "\nexport { MENU, Sounds };\n", self.join())

    def test_later_modules_import_from_the_joined_one(self):
        self.join()
        self.assertEqual(b"import { MENU } from './main.js';\nimport { Box } from './box.js';\n", self.files["page/voice.js"])
        self.assertEqual(["index.html", "page/box.js", "page/main.js", "page/voice.js"], sorted(self.files))
        self.assertEqual((b"<title>", b"export class Box {}\n"), (self.files["index.html"], self.files["page/box.js"]))

    def test_two_modules_may_not_declare_the_same_name(self):
        for declaration in (b"const page = 1;\n", b"async function Sounds() {}\n", b"export class page {}\n",
                            b"const [other, page] = [1, 2];\n"):
            self.setUp()
            self.files["page/core.js"] += declaration
            with self.subTest(declaration), self.assertRaisesRegex(SystemExit, "two modules.*: (page|Sounds)$"):
                self.join()

    def test_an_import_of_another_form_is_refused(self):
        for line in (b"import * as core from './core.js';\n", b"import core from './core.js';\n",
                     b"export { MENU } from './core.js';\n", b"import './core.js';\n"):
            self.setUp()
            self.files["page/sounds.js"] = line
            with self.subTest(line), self.assertRaisesRegex(SystemExit, "sounds.js"):
                self.join()


class Policies(html.parser.HTMLParser):
    """Finds the content security policies of a page."""

    def __init__(self):
        super().__init__()
        self.found = []

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag == "meta" and attributes.get("http-equiv") == "Content-Security-Policy":
            self.found.append(attributes["content"])


class Promises(unittest.TestCase):
    def read(self, name):
        with open(os.path.join(SOURCE, "web", name), encoding="utf-8") as file:
            return file.read()

    def test_the_policy_allows_only_what_the_page_holds(self):
        page = Policies()
        page.feed(self.read("index.html"))
        (policy,) = page.found
        rules = dict(rule.split(" ", 1) for rule in policy.split("; "))
        self.assertEqual("'none'", rules.pop("default-src"))
        words = {word for rule in rules.values() for word in rule.split()}
        self.assertEqual({"'self'", "'none'", "blob:", "'wasm-unsafe-eval'"}, words)
        self.assertEqual("'self' 'wasm-unsafe-eval'", rules["script-src"])

    def test_the_manifest_has_no_address_outside_its_folder(self):
        manifest = json.loads(self.read("manifest.webmanifest"))
        self.assertEqual(("./", "./", "standalone"), tuple(manifest[name] for name in ("start_url", "scope", "display")))
        places = [one["src"] for one in manifest["icons"] + manifest["screenshots"]]
        places += [one["url"] for one in manifest["shortcuts"]]
        places += [manifest["share_target"]["action"], *(one["action"] for one in manifest["file_handlers"])]
        self.assertEqual([], [place for place in places if place.startswith("/") or ":" in place or ".." in place])
        self.assertIn("maskable", [icon.get("purpose") for icon in manifest["icons"]])
        self.assertTrue(manifest["shortcuts"] and manifest["share_target"]["params"]["files"])


if __name__ == "__main__":
    unittest.main()
