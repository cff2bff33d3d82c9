# SPDX-License-Identifier: MIT
"""The user's mouse, fingers and keys on a page. The browser takes this input for the user's own."""
import base64
import json
import mimetypes
import os

# From the name as in KeyboardEvent.key to its code and its virtual key code.
_KEYS = {
    "Enter": ("Enter", 13), "Escape": ("Escape", 27), "Tab": ("Tab", 9), " ": ("Space", 32),
    "Backspace": ("Backspace", 8), "Delete": ("Delete", 46), "Home": ("Home", 36), "End": ("End", 35),
    "PageUp": ("PageUp", 33), "PageDown": ("PageDown", 34), "ArrowLeft": ("ArrowLeft", 37), "ArrowUp": ("ArrowUp", 38),
    "ArrowRight": ("ArrowRight", 39), "ArrowDown": ("ArrowDown", 40), "ContextMenu": ("ContextMenu", 93),
    "Alt": ("AltLeft", 18), "Control": ("ControlLeft", 17), "Meta": ("MetaLeft", 91), "Shift": ("ShiftLeft", 16),
    **{"F%d" % n: ("F%d" % n, 111 + n) for n in range(1, 13)},
    **{letter: ("Key" + letter.upper(), ord(letter.upper())) for letter in "abcdefghijklmnopqrstuvwxyz"},
    **{digit: ("Digit" + digit, ord(digit)) for digit in "0123456789"},
}
_MODIFIERS = {"Alt": 1, "Control": 2, "Meta": 4, "Shift": 8}
_TEXTS = {"Enter": "\r", "Tab": ""}


class Hands:
    """Positions are CSS pixels of the window, from its upper left corner."""

    def click(self, x, y, times=1):
        """Presses and releases the mouse; times=2 is a double click."""
        self.mouse("mouseMoved", x, y)
        for count in range(1, times + 1):
            self.mouse("mousePressed", x, y, count)
            self.mouse("mouseReleased", x, y, count)

    def mouse(self, kind, x, y, count=1):
        """A part of a click or a drag: kind is "mouseMoved", "mousePressed" or "mouseReleased"."""
        moved = kind == "mouseMoved"
        self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="none" if moved else "left",
                  clickCount=0 if moved else count)

    def drag(self, x, y, to_x, to_y, steps=5):
        """Presses the mouse, moves it and releases it."""
        self.mouse("mouseMoved", x, y)
        self.mouse("mousePressed", x, y)
        for step in range(1, steps + 1):
            self.call("Input.dispatchMouseEvent", type="mouseMoved", button="left", buttons=1,
                      x=x + (to_x - x) * step / steps, y=y + (to_y - y) * step / steps)
        self.mouse("mouseReleased", to_x, to_y)

    def tap(self, x, y):
        """One finger, down and up. The page is one with touch: see Page.size."""
        self.touch("touchStart", (x, y))
        self.touch("touchEnd")

    def touch(self, kind, *fingers):
        """Fingers on the screen: kind is "touchStart", "touchMove", "touchEnd" or "touchCancel"; each finger (x, y).
        Fingers that are not listed any more are lifted."""
        self.call("Input.dispatchTouchEvent", type=kind, touchPoints=[
            {"x": x, "y": y, "id": number} for number, (x, y) in enumerate(fingers)])

    def key(self, key, *modifiers):
        """Presses and releases a key, named as in KeyboardEvent.key: key("Enter"), key("s", "Control")."""
        self.key_down(key, *modifiers)
        self.key_up(key, *modifiers)

    def key_down(self, key, *modifiers, repeat=False):
        """Only presses a key; repeat=True: as a keyboard repeats a key that is held."""
        text = "" if set(modifiers) & {"Alt", "Control", "Meta"} else _TEXTS.get(key, key if len(key) == 1 else "")
        self.call("Input.dispatchKeyEvent", type="keyDown" if text else "rawKeyDown", text=text, autoRepeat=repeat,
                  **_key(key, modifiers))

    def key_up(self, key, *modifiers):
        """Only releases it."""
        self.call("Input.dispatchKeyEvent", type="keyUp", **_key(key, modifiers))

    def press(self, selector):
        """Clicks into the middle of the first element that the CSS selector finds."""
        self.click(*self.place(selector))

    def place(self, selector):
        """The middle of the first element that the CSS selector finds, scrolled into the window."""
        return tuple(self.wait_for("""(() => {
            const element = document.querySelector(%s);
            element.scrollIntoView({block: 'nearest', inline: 'nearest', behavior: 'instant'});
            const at = element.getBoundingClientRect();
            return at.width && at.height ? [at.x + at.width / 2, at.y + at.height / 2] : null;
        })()""" % json.dumps(selector)))

    def drop(self, selector, path, kind=None):
        """Drops a file on an element, as a page sees it: dragenter, dragover and drop with the file in dataTransfer.
        The events are made by script, because without a display there is nowhere to drag from."""
        with open(path, "rb") as file:
            data = base64.b64encode(file.read()).decode()
        kind = kind or mimetypes.guess_type(path)[0] or ""
        return self.evaluate("""(() => {
            const bytes = Uint8Array.from(atob(%s), (letter) => letter.charCodeAt(0));
            const dataTransfer = new DataTransfer();
            dataTransfer.items.add(new File([bytes], %s, {type: %s}));
            const element = document.querySelector(%s);
            const options = {bubbles: true, cancelable: true, dataTransfer};
            for (const name of ['dragenter', 'dragover', 'drop']) {
                element.dispatchEvent(new DragEvent(name, options));
            }
        })()""" % tuple(map(json.dumps, (data, os.path.basename(path), kind, selector))))


def _key(key, modifiers):
    code, number = _KEYS[key if len(key) > 1 else key.lower()]
    return {"key": key, "code": code, "windowsVirtualKeyCode": number, "nativeVirtualKeyCode": number,
            "modifiers": sum(_MODIFIERS[name] for name in modifiers)}
