# SPDX-License-Identifier: MIT
"""metainfo.py FILE VERSION DESKTOP_ENTRY MIME_TYPES LANGUAGE...: checks of the metainfo that no validator can make."""

import sys
import xml.etree.ElementTree as tree

TRANSLATED = ["name", "summary", "developer_name", "p", "li"]


def language(element):
    return element.get("{http://www.w3.org/XML/1998/namespace}lang")


def problems(root, version, entry, types, *languages):
    marks = [None if code == "en" else code for code in languages]
    for tag in TRANSLATED:
        found = [language(element) for element in root.iter(tag)]
        # Each text is followed by all its translations.
        if not found or found != marks * (len(found) // len(marks)):
            yield f"<{tag}> does not come in every language: {found}"
    texts = [element.text for tag in ("summary", "p", "li") for element in root.iter(tag)]
    for text in set(texts):
        if texts.count(text) > 1:
            yield f"this is no translation: {text}"
    spoken = [element.text for element in root.iter("lang")]
    if spoken != list(languages):
        yield f"the program is said to speak {spoken}"
    if root.find("launchable").text != entry:
        yield "the metainfo launches something else"
    if root.find("releases/release").get("version") != version:
        yield f"the newest release is not {version}"
    for element in root.iter("mediatype"):
        if element.text not in types.split(";"):
            yield f"the desktop entry does not offer to open {element.text}"


root = tree.parse(sys.argv[1]).getroot()
errors = list(problems(root, *sys.argv[2:]))
print("\n".join(errors), file=sys.stderr)
sys.exit(1 if errors else 0)
