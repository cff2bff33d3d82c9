# SPDX-License-Identifier: MIT
"""screenshots.py SOURCE LANGUAGE...: checks that the pictures for the metainfo exist, in the right size, with a caption in
every language.

The list is put into a copy of the metainfo, with an address, and that copy must be valid.
"""
import os
import re
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as tree

LANG = "{http://www.w3.org/XML/1998/namespace}lang"
MAX_CAPTION = 100  # characters: software centres cut longer ones


def size_of(path):
    with open(path, "rb") as file:
        return struct.unpack(">II", file.read(24)[16:])


def problems(source, languages):
    with open(os.path.join(source, "packaging/screenshots.xml"), encoding="utf-8") as file:
        text = file.read()
    shots = tree.fromstring(text.encode()).findall("screenshot")
    if len(shots) != 3 or [shot.get("type") for shot in shots] != ["default", None, None]:
        yield "there are not three screenshots, the first of them the default"
    for shot in shots:
        image = shot.find("image")
        path = os.path.join(source, image.text.replace("ADDRESS/", ""))
        if not os.path.exists(path):
            yield "%s is missing" % path
            continue
        width, height = size_of(path)
        if 9 * width != 16 * height or (str(width), str(height)) != (image.get("width"), image.get("height")):
            yield "%s is %d x %d" % (path, width, height)
        captions = shot.findall("caption")
        if [caption.get(LANG) or "en" for caption in captions] != languages:
            yield "%s: the captions are not in every language" % path
        if len({caption.text for caption in captions}) != len(captions):
            yield "%s: a caption is not translated" % path
        if any(len(caption.text) > MAX_CAPTION for caption in captions):
            yield "%s: a caption is too long" % path
    with open(os.path.join(source, "packaging/org.murmelo.Murmelo.metainfo.xml"), encoding="utf-8") as file:
        metainfo = file.read()
    block = re.search(r"<screenshots>.*</screenshots>", text, re.S).group(0).replace("ADDRESS", "https://example.org")
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "org.murmelo.Murmelo.metainfo.xml")
        with open(path, "w", encoding="utf-8") as file:
            file.write(metainfo.replace("  <content_rating", block + "\n  <content_rating", 1))
        run = subprocess.run(["appstreamcli", "validate", "--no-net", path], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, check=False)
        if run.returncode != 0 or re.search(r"^[EW]:", run.stdout, re.M):
            yield "with them the metainfo is not valid: " + run.stdout


def main():
    source, *languages = sys.argv[1:]
    errors = list(problems(source, languages))
    print("\n".join(errors), file=sys.stderr)
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
