# SPDX-License-Identifier: MIT
"""One tab of the browser: its address, its script, its picture, its surroundings."""
import base64
import os
import time

from devtools import DevToolsError
from hands import Hands

WAIT_SECONDS = 120  # long: only something that never happens takes so long
_POLL_SECONDS = 0.05


# The truth is decided in JavaScript: some objects are {} here, which Python takes for false.
_TRUTH = """(async () => {
    const value = await (%s);
    const kinds = [Array.prototype, Object.prototype];
    const isPlain = Object(value) !== value || kinds.includes(Object.getPrototypeOf(value));
    return [Boolean(value), isPlain ? value : true];
})()"""
# For a moment the page that is left still exists, and it is complete too.
_MARK = "window.isThePageBefore = true"
_LOADED = "!window.isThePageBefore && document.readyState === 'complete'"


class PageError(Exception):
    """The page's script has thrown an exception, or a wait has ended without success."""


class Page(Hands):
    """A tab, made by Browser, with the frequent operations; `call` calls any method of the protocol."""

    def __init__(self, session, records):
        self._session, self._records = session, records
        self.call, self.send, self.target = session.call, session.send, session.target

    def open(self, address):
        """Goes to the address and waits until the page is loaded. One that cannot be reached raises PageError."""
        self.evaluate(_MARK)
        result = self.call("Page.navigate", url=address)
        if result.get("errorText"):
            raise PageError("%s: %s" % (address, result["errorText"]))
        if "loaderId" in result:  # not only another #anchor of the same page
            self.wait_for(_LOADED)

    def reload(self, past_cache=False):
        """Loads the page again and waits until it is loaded."""
        self.evaluate(_MARK)
        self.call("Page.reload", ignoreCache=past_cache)
        self.wait_for(_LOADED)

    def evaluate(self, expression, gesture=False):
        """The value of a JavaScript expression; a promise is awaited. A value that JSON cannot hold is None.
        gesture: the expression runs as if the user had just touched the page."""
        result = self.call("Runtime.evaluate", expression=expression, awaitPromise=True, returnByValue=True,
                           userGesture=gesture)
        if "exceptionDetails" in result:
            details = result["exceptionDetails"]
            thrown = details.get("exception", {})
            raise PageError("%s\n%s" % (expression, thrown.get("description", thrown.get("value", details["text"]))))
        return result["result"].get("value")

    def wait_for(self, expression, seconds=WAIT_SECONDS):
        """Asks until the expression is true (or a promise of it), and returns its value; True for values that
        JSON cannot hold, such as an element. While the page goes to another address, it tries again."""
        limit = time.monotonic() + seconds
        while True:
            try:
                is_true, value = self.evaluate(_TRUTH % expression)
                if is_true:
                    return value
            except DevToolsError as error:
                if not any(word in str(error) for word in ("context", "navigated", "Promise was collected")):
                    raise
                value = error
            except PageError as error:
                value = error  # may refer to what is not there yet
            if time.monotonic() > limit:
                raise PageError("not in %d s: %s\nlast: %s\n%s" % (
                    seconds, expression, value, "\n".join(map(str, self._records.problems()))))
            time.sleep(_POLL_SECONDS)

    def before_load(self, script):
        """Runs the script at the start of every document from now on, before any script of the page: for stubs."""
        return self.call("Page.addScriptToEvaluateOnNewDocument", source=script)["identifier"]

    def size(self, width, height, ratio=1, mobile=False):
        """The window's inner size in CSS pixels, and how many device pixels make one. mobile: also touch, and a
        viewport as on a phone."""
        orientation = {"type": "portraitPrimary", "angle": 0} if height >= width else {
            "type": "landscapePrimary", "angle": 90}
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=ratio,
                  mobile=mobile, screenWidth=width, screenHeight=height, screenOrientation=orientation)
        self.call("Emulation.setTouchEmulationEnabled", enabled=mobile, maxTouchPoints=5)

    def safe_area(self, top=0, left=0, bottom=0, right=0):
        """Sets the margins of a notch or a rounded corner: env(safe-area-inset-top) and the others, in CSS pixels."""
        self.call("Emulation.setSafeAreaInsetsOverride", insets={
            "top": top, "left": left, "bottom": bottom, "right": right})

    def media(self, **features):
        """Sets the user's preferences: media(prefers_reduced_motion="reduce", prefers_color_scheme="dark")."""
        self.call("Emulation.setEmulatedMedia", features=[
            {"name": name.replace("_", "-"), "value": value} for name, value in features.items()])

    def screenshot(self, path):
        """Writes what the window shows, in device pixels, as a PNG file."""
        picture = self.call("Page.captureScreenshot", format="png")["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(picture))

    def quota(self, size=None, origin=None):
        """Sets how many bytes an origin (None: the page's) may store; size None: the browser's own limit.
        Chromium remembers for half a minute how much space it found: call it before the page opens its store, or
        let the page write until it is refused. navigator.storage.estimate() does not return this limit."""
        limit = {} if size is None else {"quotaSize": size}
        self.call("Storage.overrideQuotaForOrigin", origin=origin or self.evaluate("location.origin"), **limit)

    def front(self):
        """Shows this tab; the others are then hidden."""
        self.call("Page.bringToFront")

    def freeze(self):
        """Freezes the page, as a phone does with one that was hidden for long: no script runs until thaw()."""
        self.call("Page.setWebLifecycleState", state="frozen")

    def thaw(self):
        """Ends freeze."""
        self.call("Page.setWebLifecycleState", state="active")

    def words(self):
        """The elements that a screen reader finds, in reading order: a list of (role, name, properties)."""
        nodes = self.call("Accessibility.getFullAXTree")["nodes"]
        known = {node["nodeId"]: node for node in nodes}
        found, waiting = [], [nodes[0]]
        while waiting:
            node = waiting.pop()
            waiting += [known[child] for child in reversed(node.get("childIds", [])) if child in known]
            if not node["ignored"]:
                found.append((node["role"]["value"], node.get("name", {}).get("value", ""),
                              {entry["name"]: entry["value"].get("value") for entry in node.get("properties", [])}))
        return found

    def pick_files(self, press, paths):
        """Calls press, which makes the page ask for files, and chooses those at paths as the user would."""
        self.call("Page.setInterceptFileChooserDialog", enabled=True)
        try:
            press()
            asked = self._records.until(lambda records: records.all("file-chooser", target=self.target["targetId"]))[0]
            self._records.take_out(asked)
            self.call("DOM.setFileInputFiles", files=[os.path.abspath(path) for path in paths],
                      backendNodeId=int(asked.text))
        finally:
            self.call("Page.setInterceptFileChooserDialog", enabled=False)

    def close(self):
        """Closes the tab."""
        self.call("Page.close")

    @property
    def records(self):
        """The records of this tab only."""
        return self._records.all(target=self.target["targetId"])
