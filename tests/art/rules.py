# SPDX-License-Identifier: MIT
"""rules.py RES_DIR STRIP_DIR: checks what the program expects of its pictures.

Names and sizes agree, the decoder accepts the kinds of files, the pieces fit the background, no part that is painted
again erases a part of a creature, and white text is readable where text is shown.
"""
import os
import re
import struct
import sys

from PIL import Image, ImageChops

PLACED = re.compile(r"^(?:[a-z_]+?)(?:_\d+)?_(\d+)_(\d+)_(\d+)_(\d+)\.png$")
EXPECTED = """
background_0_0_240_320 mic_led_0_192_83_86 mic_overlay_13_151_49_42 wheels_overlay_175_179_57_14
play_154_212_35_23 record_155_213_51_27 stop_195_226_29_21 arrow_left_white arrow_right_white arrow_right_black
wheels_15_176_179_64_32 wheels_30_176_179_64_32 wheels_45_176_179_64_32 wheels_60_176_179_64_32
wheels_75_176_179_64_32 focus_bar_x5y5 footer_bg_x0y15 menu_bg_x16y16
no_effect_73_45_94_148 robot_64_43_103_150 backwards_73_48_94_145 high_pitch_70_81_97_112 low_pitch_70_47_114_146
fast_talker_73_67_94_126 drunk_73_97_94_96 intonation_73_52_94_141 splash_top splash_eu
""".split()
CHARACTERS = EXPECTED[18:26]
LAMP = (0, 192, 83, 278)      # repainted while recording, edges exclusive
WHEELS = (176, 179, 240, 211)  # repainted while recording and playing
ARROW_MAX = (22, 22)          # fits the 26 rows of the header with 2 to spare above and below
HEADER = (0, 0, 240, 26)
SOFT_KEYS = (0, 288, 240, 320)
MIN_CONTRAST = 4.5            # of text, by the usual accessibility rule

ROUNDING = 1                  # of 255: blending a colour with itself may change it by this much

problems = []


def check(condition, text):
    if not condition:
        problems.append(text)


def header_of(path):
    with open(path, "rb") as file:
        return struct.unpack(">IIBBBBB", file.read(29)[16:29])


def check_file(folder, name):
    path = os.path.join(folder, name + ".png")
    if not os.path.exists(path):
        problems.append(name + ".png is missing")
        return
    width, height, depth, colour, _, _, interlace = header_of(path)
    check(colour in (2, 3, 6), "%s: colour type %d" % (name, colour))
    check(colour == 3 or depth == 8, "%s: depth %d" % (name, depth))
    check(interlace == 0, name + ": interlaced")
    place = PLACED.match(name + ".png")
    if place:
        check((width, height) == tuple(map(int, place.groups()[2:])), "%s: %d x %d" % (name, width, height))


def load(folder, name):
    image = Image.open(os.path.join(folder, name + ".png")).convert("RGBA")
    place = PLACED.match(name + ".png")
    return image, tuple(map(int, place.groups()[:2])) if place else (0, 0)


def check_cut_outs(folder, background):
    for name in EXPECTED:
        if not re.match("mic_|wheels_|play_|record_|stop_", name):
            continue
        picture, (x, y) = load(folder, name)
        under = background.crop((x, y, x + picture.width, y + picture.height))
        over = under.copy()
        over.alpha_composite(picture)
        changed = ImageChops.difference(over.convert("RGB"), under.convert("RGB"))
        if "overlay" in name:
            most = max(high for _, high in changed.getextrema())
            check(most <= ROUNDING, name + ": differs from the background by %d" % most)
            check(picture.getchannel("A").getextrema() == (0, 255), name + ": not cut to a shape")
        else:
            check(changed.getbbox() is not None, name + ": shows nothing of its own")
    lamp, (x, y) = load(folder, "mic_led_0_192_83_86")
    under = background.crop((x, y, x + lamp.width, y + lamp.height))
    inner = Image.new("RGBA", (lamp.width - 2, lamp.height - 2))
    for image in (lamp, under):
        image.paste(inner, (1, 1))
    check(lamp.tobytes() == under.tobytes(), "mic_led: the glow is cut off at its edge")


def check_wheels(folder, background):
    """Checks the six phases: all different, and the change from each phase to the next about equal."""
    phases = [background.crop(WHEELS).convert("RGB")]
    phases += [load(folder, "wheels_%d_176_179_64_32" % p)[0].convert("RGB") for p in range(15, 90, 15)]
    steps = []
    for i, phase in enumerate(phases):
        difference = ImageChops.difference(phase, phases[(i + 1) % 6]).convert("L")
        steps.append(sum(difference.getdata()))
    check(min(steps) > 0 and max(steps) < 1.5 * min(steps), "wheels: uneven steps %s" % steps)


def check_characters(folder):
    overlay, (ox, oy) = load(folder, "wheels_overlay_175_179_57_14")
    covered = Image.new("L", (240, 320))
    covered.paste(overlay.getchannel("A"), (ox, oy))
    for name in CHARACTERS:
        picture, (x, y) = load(folder, name)
        check(y + picture.height == 193, name + ": does not stand on the recorder")
        alpha = Image.new("L", (240, 320))
        alpha.paste(picture.getchannel("A"), (x, y))
        check(alpha.getextrema() == (0, 255), name + ": no shape")
        for rect in (LAMP, WHEELS):
            check(alpha.crop(rect).getbbox() is None, "%s: would be wiped out in %s" % (name, rect))
        top = alpha.crop((0, y, 240, y + 1)).getextrema()[1]
        sides = max(alpha.crop((c, y, c + 1, 193)).getextrema()[1] for c in (x, x + picture.width - 1))
        check(max(top, sides) < 128, name + ": cut off at an edge")


def luminance(pixel):
    parts = [c / 255 for c in pixel[:3]]
    r, g, b = (c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in parts)
    return 0.2126 * r + 0.7152 * g + 0.0722 * b


def contrast_with_white(image):
    return 1.05 / (max(luminance(p) for p in image.convert("RGB").getdata()) + 0.05)


def stretched_rows(picture):
    return picture.resize((240, picture.height), Image.NEAREST)


def check_stretched(folder):
    """Checks the pictures that are stretched, whose middle row and column are repeated: from edge to edge every channel
    only rises or only falls, level by level."""
    for name, edge in (("footer_bg_x0y15", 2), ("menu_bg_x16y16", 5), ("focus_bar_x5y5", 2)):
        picture, _ = load(folder, name)
        column, row = (int(n) for n in re.search(r"_x(\d+)y(\d+)$", name).groups())
        lines = [[picture.getpixel((column, y)) for y in range(edge, picture.height - (edge if column else 0))]]
        if column:
            lines.append([picture.getpixel((x, row)) for x in range(edge, picture.width - edge)])
        else:
            rows = {picture.crop((0, y, picture.width, y + 1)).tobytes().count(bytes(picture.getpixel((0, y))))
                    for y in range(picture.height)}
            check(rows == {picture.width}, name + ": columns differ")
        for line in lines:
            for channel, bits in ((0, 5), (1, 6), (2, 5)):
                levels = [round(pixel[channel] * ((1 << bits) - 1) / 255) for pixel in line]
                steps = [b - a for a, b in zip(levels, levels[1:])]
                check(all(s <= 0 for s in steps) or all(s >= 0 for s in steps), "%s: goes up and down" % name)
                check(max(map(abs, steps)) <= 3, "%s: a step of %d levels" % (name, max(map(abs, steps))))


def check_text_places(folder, background):
    contrast = contrast_with_white(background.crop(HEADER))
    check(contrast >= MIN_CONTRAST, "header: contrast %.1f" % contrast)
    footer, _ = load(folder, "footer_bg_x0y15")
    check(footer.height == 32, "footer: %d rows" % footer.height)
    bar = background.crop(SOFT_KEYS)
    bar.alpha_composite(stretched_rows(footer))
    contrast = contrast_with_white(bar.crop((0, 4, 240, 32)))
    check(contrast >= MIN_CONTRAST, "soft keys: contrast %.1f" % contrast)
    menu, _ = load(folder, "menu_bg_x16y16")
    brightest = Image.new("RGBA", menu.size, (255, 255, 255, 255))
    brightest.alpha_composite(menu)
    contrast = contrast_with_white(brightest.crop((16, 16, 17, 17)))
    check(contrast >= MIN_CONTRAST, "menu: contrast %.1f over white" % contrast)
    focus, _ = load(folder, "focus_bar_x5y5")
    bright = focus.getpixel((5, 5))
    text = tuple(c * 95 // 255 for c in bright[:3])  # black at alpha 0xA0 over the bar
    contrast = (luminance(bright) + 0.05) / (luminance(text) + 0.05)
    check(contrast >= MIN_CONTRAST, "focus bar: contrast %.1f" % contrast)
    for name in ("arrow_left_white", "arrow_right_white", "arrow_right_black"):
        size = load(folder, name)[0].size
        check(size[0] <= ARROW_MAX[0] and size[1] <= ARROW_MAX[1], "%s: %s" % (name, size))


def check_strip(folder):
    """Checks the eight heads and five icons: each fills its own cell and does not reach out of it."""
    for name, cells, size in (("heads", 8, 28), ("icons", 5, 16)):
        check_file(folder, name)
        picture = Image.open(os.path.join(folder, name + ".png")).convert("RGBA")
        check(picture.size == (cells * size, size), "%s: %s" % (name, picture.size))
        alpha = picture.getchannel("A")
        for cell in range(cells):
            box = alpha.crop((cell * size, 0, (cell + 1) * size, size)).getbbox()
            tall = box and box[3] - box[1] >= size * 3 // 4 and box[2] - box[0] >= size * 3 // 4
            check(tall, "%s: cell %d shows too little" % (name, cell))


def main():
    folder, strip = sys.argv[1:]
    for name in EXPECTED:
        check_file(folder, name)
    check_strip(strip)
    if not problems:
        background, _ = load(folder, "background_0_0_240_320")
        check_cut_outs(folder, background)
        check_wheels(folder, background)
        check_characters(folder)
        check_stretched(folder)
        check_text_places(folder, background)
        check(load(folder, "splash_top")[0].size == (240, 248), "splash_top: wrong size")
        check(load(folder, "splash_eu")[0].size == (240, 72), "splash_eu: wrong size")
    for problem in problems:
        print("rules: " + problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
