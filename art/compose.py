# SPDX-License-Identifier: MIT
"""Composes whole screens from the pictures as the program does, for a person to look at: compose.py RES_DIR OUT_DIR

Writes one picture of the screen per effect and state at 240 x 320 and doubled, and contact sheets of them all.
"""
import glob
import os
import sys

from PIL import Image, ImageDraw, ImageFont

EFFECTS = (("no_effect", "No effect"), ("robot", "Robot"), ("backwards", "Backwards"), ("high_pitch", "High pitch"),
           ("low_pitch", "Low Pitch"), ("fast_talker", "Fast talker"), ("drunk", "Drunk"),
           ("intonation", "Intonation flip"))
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
WHITE = (255, 255, 255, 255)


class Pictures:
    """The pictures, by the stems of their names; some names contain the picture's place."""

    def __init__(self, folder):
        self.paths = {os.path.basename(p)[:-4]: p for p in glob.glob(os.path.join(folder, "*.png"))}

    def get(self, stem):
        """The picture and its place (None if its name has none)."""
        for name, path in self.paths.items():
            if name == stem:
                return Image.open(path).convert("RGBA"), None
            rest = name[len(stem) + 1:].split("_")
            if name.startswith(stem + "_") and len(rest) == 4:
                return Image.open(path).convert("RGBA"), tuple(int(n) for n in rest)
        raise SystemExit("compose: no picture " + stem)


def stretch(picture, split, width, height):
    """Stretches a picture: corners stay as they are, edges and centre repeat the row and column of the split point."""
    a, b = split
    w, h = picture.size
    columns = ((0, a, 0, a), (a, a + 1, a, width - (w - a - 1)), (a + 1, w, width - (w - a - 1), width))
    rows = ((0, b, 0, b), (b, b + 1, b, height - (h - b - 1)), (b + 1, h, height - (h - b - 1), height))
    out = Image.new("RGBA", (width, height))
    for x0, x1, u0, u1 in columns:
        for y0, y1, v0, v1 in rows:
            if x1 > x0 and y1 > y0 and u1 > u0 and v1 > v0:
                part = picture.crop((x0, y0, x1, y1)).resize((u1 - u0, v1 - v0), Image.NEAREST)
                out.paste(part, (u0, v0))
    return out


class Screen:
    def __init__(self, pictures):
        self.pictures = pictures
        self.image = pictures.get("background")[0]

    def put(self, stem):
        picture, place = self.pictures.get(stem)
        self.image.alpha_composite(picture, place[:2])
        return self

    def at(self, stem, x, y):
        picture = self.pictures.get(stem)[0]
        self.image.alpha_composite(picture, (x if x >= 0 else 240 + x - picture.width, y))
        return self

    def stretched(self, stem, split, x, y, w, h):
        self.image.alpha_composite(stretch(self.pictures.get(stem)[0], split, w, h), (x, y))
        return self

    def text(self, text, size, x, y, anchor, colour=WHITE):
        layer = Image.new("RGBA", self.image.size)
        font = ImageFont.truetype(FONT, size)
        ImageDraw.Draw(layer).text((x, y), text, font=font, fill=colour, anchor=anchor)
        self.image.alpha_composite(layer)
        return self

    def keys(self, left, middle, right):
        self.stretched("footer_bg_x0y15", (0, 15), 0, 288, 240, 32)
        self.text(left, 11, 8, 298, "la").text(right, 11, 231, 298, "ra")
        return self.text(middle, 14, 120, 296, "ma")

    def header(self, name, arrows=True):
        if arrows:
            self.at("arrow_left_white", 8, 2).at("arrow_right_white", -8, 2)
        return self.text(name, 14, 120, 6, "ma")

    def overlays(self):
        return self.put("mic_overlay").put("wheels_overlay")


def slide(pictures, name, shift):
    """A character in the middle of its slide, behind the microphone and the wheels."""
    screen = Screen(pictures)
    picture, place = pictures.get(name)
    moved = Image.new("RGBA", (240, 320))
    moved.paste(picture, (place[0] + shift, place[1]))
    screen.image.alpha_composite(moved)
    return screen.overlays().header("", True).keys("Options", "Play", "Quit")


def menu(pictures):
    screen = Screen(pictures).put("no_effect")
    screen.stretched("menu_bg_x16y16", (16, 16), 10, 70, 220, 130)
    screen.stretched("focus_bar_x5y5", (5, 5), 22, 88, 196, 28)
    screen.text("Record", 14, 120, 94, "ma", (0, 0, 0, 0xA0))
    screen.text("Help", 14, 120, 126, "ma").text("Language", 14, 120, 158, "ma")
    return screen.keys("", "Select", "Back")


def screens(pictures):
    for name, title in EFFECTS:
        screen = Screen(pictures).put(name)
        yield name, screen.header(title).keys("Options", "Play", "Quit")
    recording = Screen(pictures).put("no_effect").put("mic_led").put("wheels_45").put("record")
    yield "state_recording", recording.keys("", "Stop", "")
    playing = Screen(pictures).put("robot").put("wheels_30").put("play")
    yield "state_playing", playing.header("Robot", False).keys("", "Stop", "")
    yield "state_stop", Screen(pictures).put("drunk").put("stop").header("Drunk", False).keys("", "", "")
    yield "state_menu", menu(pictures)
    yield "slide_left", slide(pictures, "low_pitch", -70)
    yield "slide_right", slide(pictures, "robot", 80)
    splash = Screen(pictures).at("splash_top", 0, 0).at("splash_eu", 0, 248)
    yield "splash", splash


def sheet(images, columns):
    w, h = images[0].size
    out = Image.new("RGB", (columns * (w + 8), -(-len(images) // columns) * (h + 8)), (128, 128, 128))
    for i, image in enumerate(images):
        out.paste(image.convert("RGB"), (i % columns * (w + 8) + 4, i // columns * (h + 8) + 4))
    return out


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    res, out = sys.argv[1:]
    os.makedirs(out, exist_ok=True)
    done = []
    for name, screen in screens(Pictures(res)):
        done.append(screen.image)
        screen.image.convert("RGB").save(os.path.join(out, name + ".png"))
        screen.image.convert("RGB").resize((480, 640), Image.NEAREST).save(os.path.join(out, name + "_x2.png"))
    sheet(done[:8], 4).save(os.path.join(out, "sheet_effects.png"))
    sheet(done[8:], 4).save(os.path.join(out, "sheet_states.png"))


if __name__ == "__main__":
    main()
