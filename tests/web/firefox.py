# SPDX-License-Identifier: MIT
"""Starts Firefox without a window and talks to it by WebDriver BiDi. Standard library only.

    with Firefox() as firefox:
        firefox.open("http://localhost:8000/")
        firefox.wait_for("document.readyState === 'complete'")

Needs no display and no sound card; without one Firefox plays sounds, but hears nothing. The profile is in a temporary
folder that is removed with the browser.
"""
import base64
import json
import os
import re
import shutil
import socket
import struct
import subprocess
import tempfile
import time

FIREFOX = os.environ.get("MURMELO_FIREFOX", "/usr/bin/firefox-esr")
START_SECONDS = 120
WAIT_SECONDS = 120
_POLL_SECONDS = 0.1
_TEXT, _CONTINUED, _PING, _PONG = 1, 0, 9, 10

# A first start that shows no page of Firefox's own, asks no questions, and lets sound play.
_SETTINGS = """
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("browser.startup.homepage_override.mstone", "ignore");
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("media.autoplay.default", 0);
user_pref("app.update.enabled", false);
user_pref("browser.download.folderList", 2);
user_pref("browser.download.dir", "%s");
user_pref("browser.download.useDownloadDir", true);
user_pref("browser.download.alwaysOpenPanel", false);
"""


class FirefoxError(Exception):
    """Firefox did not start, did not reply, or the page's script threw."""


class _WebSocket:
    """A client of one connection; messages are texts."""

    def __init__(self, host, port, path):
        self._socket = socket.create_connection((host, port), START_SECONDS)
        key = base64.b64encode(os.urandom(16)).decode()
        self._socket.sendall(("GET %s HTTP/1.1\r\nHost: %s:%d\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                              "Sec-WebSocket-Key: %s\r\nSec-WebSocket-Version: 13\r\n\r\n" % (path, host, port, key)).encode())
        self._bytes = b""
        while b"\r\n\r\n" not in self._bytes:
            self._bytes += self._more()
        head, self._bytes = self._bytes.split(b"\r\n\r\n", 1)
        if b" 101 " not in head.split(b"\r\n")[0] + b" ":
            raise FirefoxError(head.decode())

    def _more(self):
        got = self._socket.recv(65536)
        if not got:
            raise FirefoxError("Firefox has closed the connection")
        return got

    def _take(self, count):
        while len(self._bytes) < count:
            self._bytes += self._more()
        taken, self._bytes = self._bytes[:count], self._bytes[count:]
        return taken

    def _send_frame(self, kind, payload):
        mask = os.urandom(4)
        size = len(payload)
        head = bytes([0x80 | kind])
        if size < 126:
            head += bytes([0x80 | size])
        elif size < 65536:
            head += bytes([0x80 | 126]) + struct.pack(">H", size)
        else:
            head += bytes([0x80 | 127]) + struct.pack(">Q", size)
        masked = bytes(byte ^ mask[i % 4] for i, byte in enumerate(payload))
        self._socket.sendall(head + mask + masked)

    def send(self, text):
        self._send_frame(_TEXT, text.encode())

    def receive(self):
        message = b""
        while True:
            first, second = self._take(2)
            size = second & 127
            if size == 126:
                size = struct.unpack(">H", self._take(2))[0]
            elif size == 127:
                size = struct.unpack(">Q", self._take(8))[0]
            payload = self._take(size)
            if first & 15 == _PING:
                self._send_frame(_PONG, payload)
            elif first & 15 in (_TEXT, _CONTINUED):
                message += payload
                if first & 0x80:
                    return message.decode()
            else:
                raise FirefoxError("Firefox has ended the connection")

    def close(self):
        self._socket.close()


class Firefox:
    """One Firefox with one tab."""

    def __init__(self):
        self._home = tempfile.mkdtemp(prefix="murmelo_firefox_")
        self._number = 0
        self.problems = []  # errors of the page's console
        self.downloads = os.path.join(self._home, "downloads")
        os.makedirs(self.downloads)
        with open(os.path.join(self._home, "user.js"), "w", encoding="utf-8") as file:
            file.write(_SETTINGS % self.downloads)
        environment = dict(os.environ, HOME=self._home, TMPDIR=self._home, MOZ_HEADLESS="1")
        self._log = open(os.path.join(self._home, "stderr"), "w+", encoding="utf-8", errors="replace")
        self._child = subprocess.Popen(
            [FIREFOX, "--headless", "--remote-debugging-port", "0", "--profile", self._home, "about:blank"],
            stdin=subprocess.DEVNULL, stdout=self._log, stderr=self._log, env=environment, start_new_session=True)
        try:
            self._socket = self._connected()
            self.call("session.new", capabilities={})
            self.call("session.subscribe", events=["log.entryAdded"])
            self._tab = self.call("browsingContext.getTree")["contexts"][0]["context"]
        except Exception:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _output(self):
        self._log.seek(0)
        return self._log.read()

    def _connected(self):
        limit = time.monotonic() + START_SECONDS
        while time.monotonic() < limit and self._child.poll() is None:
            found = re.search(r"WebDriver BiDi listening on ws://([\w.\[\]:]+):(\d+)", self._output())
            if found:
                return _WebSocket("127.0.0.1", int(found.group(2)), "/session")
            time.sleep(_POLL_SECONDS)
        raise FirefoxError("%s did not start:\n%s" % (FIREFOX, self._output()[-2000:]))

    def call(self, method, **params):
        """Calls a method of the protocol and returns its result."""
        self._number += 1
        self._socket.send(json.dumps({"id": self._number, "method": method, "params": params}))
        while True:
            message = json.loads(self._socket.receive())
            if message.get("method") == "log.entryAdded" and message["params"]["level"] == "error":
                self.problems.append(message["params"]["text"])
            if message.get("id") == self._number:
                if message["type"] == "error":
                    raise FirefoxError("%s: %s" % (method, message.get("message")))
                return message["result"]

    def open(self, address):
        """Goes to the address and waits until the page is loaded."""
        self.call("browsingContext.navigate", context=self._tab, url=address, wait="complete")

    def reload(self):
        """Loads the page again and waits until it is loaded."""
        self.call("browsingContext.reload", context=self._tab, wait="complete")

    def before_load(self, script):
        """Runs the script at the start of every document from now on, before any script of the page: for stubs."""
        self.call("script.addPreloadScript", functionDeclaration="() => {\n%s\n}" % script)

    def press(self, selector):
        """Clicks into the middle of the first element that the CSS selector finds."""
        self.click(*self.wait_for("""(() => {
            const box = document.querySelector(%s).getBoundingClientRect();
            return box.width && [box.x + box.width / 2, box.y + box.height / 2];
        })()""" % json.dumps(selector)))

    def downloaded(self, name):
        """Waits until the file of this name is downloaded. Returns its bytes."""
        path = os.path.join(self.downloads, name)
        limit = time.monotonic() + WAIT_SECONDS
        while not os.path.exists(path) or os.path.getsize(path) == 0 or os.path.exists(path + ".part"):
            if time.monotonic() > limit:
                raise FirefoxError("%s was not downloaded; there is %s" % (name, os.listdir(self.downloads)))
            time.sleep(_POLL_SECONDS)
        with open(path, "rb") as file:
            return file.read()

    def evaluate(self, expression):
        """The value of a JavaScript expression as JSON tells it; a promise is awaited."""
        wrapped = "(async () => JSON.stringify(await (%s)))()" % expression
        result = self.call("script.evaluate", expression=wrapped, target={"context": self._tab}, awaitPromise=True)
        if result["type"] == "exception":
            raise FirefoxError(result["exceptionDetails"]["text"])
        text = result["result"].get("value")
        return None if text is None else json.loads(text)

    def wait_for(self, expression, seconds=WAIT_SECONDS):
        """Asks until the expression is true, and returns its value."""
        limit = time.monotonic() + seconds
        while True:
            try:
                value = self.evaluate(expression)
            except FirefoxError as error:
                value = None
                last = error  # the expression may refer to something that does not exist yet
            else:
                last = value
            if value:
                return value
            if time.monotonic() > limit:
                raise FirefoxError("not in %d s: %s\nlast: %s\n%s" % (seconds, expression, last, self.problems))
            time.sleep(_POLL_SECONDS)

    def click(self, x, y):
        """Presses and releases the mouse at a place of the window, as the user would."""
        x, y = int(x), int(y)
        self.call("input.performActions", context=self._tab, actions=[{
            "type": "pointer", "id": "mouse", "parameters": {"pointerType": "mouse"}, "actions": [
                {"type": "pointerMove", "x": x, "y": y}, {"type": "pointerDown", "button": 0},
                {"type": "pointerUp", "button": 0}]}])

    def choose_file(self, element_id, path):
        """Chooses a file for an input of the page, as the user would in the dialog of files."""
        found = self.call("script.evaluate", expression="document.getElementById(%s)" % json.dumps(element_id),
                          target={"context": self._tab}, awaitPromise=False)
        self.call("input.setFiles", context=self._tab, element={"sharedId": found["result"]["sharedId"]},
                  files=[os.path.abspath(path)])

    def close(self):
        """Ends the browser and removes its profile."""
        if self._child.poll() is None:
            self._child.terminate()
            try:
                self._child.wait(30)
            except subprocess.TimeoutExpired:
                self._child.kill()
                self._child.wait()
        if hasattr(self, "_socket"):
            self._socket.close()
        self._log.close()
        shutil.rmtree(self._home, ignore_errors=True)
