# SPDX-License-Identifier: MIT
"""Rasterises the SVG sources of this folder into the PNG files the program loads.

Usage: render.py RES_DIR ICON_DIR STRIP_DIR

Everything on the screen is one drawing, scene.svg, shown in several states: the pictures that are laid over
the background at run time (wheels, keys, lamp, overlays) are cut from full-screen renders of those states, so
they meet the background to the pixel.
"""
import io
import os
import re
import subprocess
import sys
import xml.etree.ElementTree as ET

from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
SVG = "{http://www.w3.org/2000/svg}"
OVERSAMPLE = 4
SCREEN = (240, 320)

# The place of each cut-out on the screen (x, y, width, height); the file names contain the same numbers.
LAMP = (0, 192, 83, 86)
WHEELS = (176, 179, 64, 32)
KEYS = {"play": (154, 212, 35, 23), "record": (155, 213, 51, 27), "stop": (195, 226, 29, 21)}
OVERLAYS = {"mic_overlay": (13, 151, 49, 42), "wheels_overlay": (175, 179, 57, 14)}
CHARACTERS = {
    "no_effect": (73, 45, 94, 148), "robot": (64, 43, 103, 150), "backwards": (73, 48, 94, 145),
    "high_pitch": (70, 81, 97, 112), "low_pitch": (70, 47, 114, 146), "fast_talker": (73, 67, 94, 126),
    "drunk": (73, 97, 94, 96), "intonation": (73, 52, 94, 141),
}
# Pictures drawn on their own: file name -> source.
PLAIN = {
    "arrow_left_white": "arrow_left_white.svg", "arrow_right_white": "arrow_right_white.svg",
    "arrow_right_black": "arrow_right_black.svg", "focus_bar_x5y5": "focus_bar.svg",
    "footer_bg_x0y15": "footer_bg.svg", "menu_bg_x16y16": "menu_bg.svg",
}
# Pictures of the strip above the screen: file name -> colours of its palette (0: none, white under an alpha plane).
STRIP = {"heads": 255, "icons": 0}
SPLIT = re.compile(r"_x\d+y\d+$")  # the end of a stretched picture's name
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256, 512)
SIMPLE_ICONS = {16: "icon_tiny.svg", 24: "icon_small.svg", 32: "icon_small.svg"}

# Which groups of scene.svg are exchanged in each state (hidden, shown).
STATES = {
    "play": (["key-play-up"], ["key-play-down"]),
    "record": (["key-play-up", "key-record-up"], ["key-play-down", "key-record-down"]),
    "stop": (["key-stop-up"], ["key-stop-down"]),
    "lamp": ([], ["lamp-lit"]),
}
OVERLAY_GROUPS = {"mic_overlay": "mic", "wheels_overlay": "tape"}


def bayer(n):
    """Ordered dither matrix of n x n, as ranks 0 .. n*n - 1."""
    if n == 1:
        return [[0]]
    half = bayer(n // 2)
    tile = [[0, 2], [3, 1]]
    return [[4 * half[y % (n // 2)][x % (n // 2)] + tile[y // (n // 2)][x // (n // 2)] for x in range(n)]
            for y in range(n)]


# Thresholds keep clear of 0 and 1, so that a colour which RGB565 can show stays as it is.
THRESHOLDS = [[0.13 + 0.74 * (rank + 0.5) / 64 for rank in row] for row in bayer(8)]


def quantise(value, bits, threshold):
    """The 8-bit value nearest to the dithered level. RGB565 keeps its high bits."""
    top = (1 << bits) - 1
    level = min(top, int(value * top / 255 + threshold))
    return (level * 255 + top // 2) // top


def dither565(image, x0, y0):
    """Dithers the colours for RGB565, with the pattern fixed to the screen; alpha is left alone."""
    image = image.convert("RGBA")
    out = []
    for index, (r, g, b, a) in enumerate(image.getdata()):
        row = THRESHOLDS[(index // image.width + y0) & 7]
        t = row[(index % image.width + x0) & 7]
        out.append((quantise(r, 5, t), quantise(g, 6, t), quantise(b, 5, t), a) if a else (0, 0, 0, 0))
    result = Image.new("RGBA", image.size)
    result.putdata(out)
    return result


def nearest565(image):
    """The nearest colours of RGB565. For stretched pictures: they repeat one row or column, and a dither would become stripes."""
    image = image.convert("RGBA")
    result = Image.new("RGBA", image.size)
    result.putdata([(quantise(r, 5, 0.5), quantise(g, 6, 0.5), quantise(b, 5, 0.5), a) if a else (0, 0, 0, 0)
                    for r, g, b, a in image.getdata()])
    return result


def rasterise(svg, width, height):
    """Renders SVG text at OVERSAMPLE times the size and averages it down."""
    command = ["rsvg-convert", "-f", "png", "-w", str(width * OVERSAMPLE), "-h", str(height * OVERSAMPLE)]
    png = subprocess.run(command, input=svg, stdout=subprocess.PIPE, check=True).stdout
    big = Image.open(io.BytesIO(png)).convert("RGBA").convert("RGBa")
    return big.reduce(OVERSAMPLE).convert("RGBA")


def source(name):
    with open(os.path.join(HERE, name), "rb") as file:
        return file.read()


class Scene:
    """scene.svg with some of its groups shown, hidden or turned."""

    def __init__(self):
        self.root = ET.fromstring(source("scene.svg"))
        self.byId = {e.get("id"): e for e in self.root.iter() if e.get("id")}

    def show(self, hidden, shown):
        for name in hidden:
            self.byId[name].set("display", "none")
        for name in shown:
            self.byId[name].attrib.pop("display", None)
        return self

    def turn(self, degrees):
        for name in ("wheel-left", "wheel-right"):
            self.byId[name].set("transform", "rotate(%d)" % degrees)
        return self

    def only(self, name):
        """Removes everything but one top-level group (and the definitions)."""
        for child in list(self.root):
            if child.tag != SVG + "defs" and child.get("id") != name:
                self.root.remove(child)
        return self

    def render(self):
        return rasterise(ET.tostring(self.root), *SCREEN)


def box(rect):
    return (rect[0], rect[1], rect[0] + rect[2], rect[1] + rect[3])


def differs_outside(a, b, rect):
    """True if two renders differ outside a rectangle."""
    a, b = a.copy(), b.copy()
    for image in (a, b):
        image.paste((0, 0, 0), box(rect))
    return a.tobytes() != b.tobytes()


def state(scene, name, rect, background):
    picture = dither565(scene.render(), 0, 0).convert("RGB")
    if differs_outside(picture, background, rect):
        sys.exit("render: state %s changes pixels outside %s" % (name, rect))
    return picture.crop(box(rect))


def placed(name, rect):
    return "%s_%d_%d_%d_%d.png" % ((name,) + rect)


def render_scene(save):
    background = dither565(Scene().render(), 0, 0).convert("RGB")
    save(background, placed("background", (0, 0) + SCREEN))
    for phase in range(15, 90, 15):
        cut = state(Scene().turn(phase), "wheels %d" % phase, WHEELS, background)
        save(cut, placed("wheels_%d" % phase, WHEELS))
    for name, rect in KEYS.items():
        save(state(Scene().show(*STATES[name]), name, rect, background), placed(name, rect))
    save(state(Scene().show(*STATES["lamp"]), "lamp", LAMP, background), placed("mic_led", LAMP))
    for name, rect in OVERLAYS.items():
        # The background's own pixels, with the group's coverage as alpha: over the background they change nothing.
        cut = background.crop(box(rect)).convert("RGBA")
        cut.putalpha(Scene().only(OVERLAY_GROUPS[name]).render().getchannel("A").crop(box(rect)))
        save(dither565(cut, rect[0], rect[1]), placed(name, rect))


def svg_size(svg):
    root = ET.fromstring(svg)
    return int(root.get("width")), int(root.get("height"))


def render_plain(save):
    for name, rect in CHARACTERS.items():
        svg = source("characters/%s.svg" % name)
        if svg_size(svg) != rect[2:]:
            sys.exit("render: %s.svg has size %s, not %s" % (name, svg_size(svg), rect[2:]))
        save(dither565(rasterise(svg, *rect[2:]), rect[0], rect[1]), placed(name, rect))
    for name, file in PLAIN.items():
        svg = source(file)
        picture = rasterise(svg, *svg_size(svg))
        save(nearest565(picture) if SPLIT.search(name) else dither565(picture, 0, 0), name + ".png")
    splash = dither565(rasterise(source("splash.svg"), *SCREEN), 0, 0).convert("RGB")
    save(splash.crop((0, 0, 240, 248)), "splash_top.png")
    save(splash.crop((0, 248, 240, 320)), "splash_eu.png")


def render_strip(folder):
    """Reduces a strip picture to a palette. A dither would look like noise in a head of 28 pixels."""
    for name, colours in STRIP.items():
        svg = source("strip/%s.svg" % name)
        picture = rasterise(svg, *svg_size(svg))
        if colours:
            picture = picture.quantize(colours, method=Image.Quantize.FASTOCTREE, dither=Image.Dither.NONE)
        picture.save(os.path.join(folder, name + ".png"), optimize=True)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    res, icons, strip = sys.argv[1:]
    for folder in (res, icons, strip):
        os.makedirs(folder, exist_ok=True)

    def save(image, name):
        image.save(os.path.join(res, name), optimize=True)

    render_scene(save)
    render_plain(save)
    render_strip(strip)
    for size in ICON_SIZES:
        rasterise(source(SIMPLE_ICONS.get(size, "icon.svg")), size, size).save(os.path.join(icons, "murmelo-%d.png" % size), optimize=True)


if __name__ == "__main__":
    main()
