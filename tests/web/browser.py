# SPDX-License-Identifier: MIT
"""Starts Chromium without a window and talks to it. Standard library only.

    with Browser(microphone="hello.wav") as browser:
        page = browser.page
        page.open("http://localhost:8000/")
        page.wait_for("document.readyState === 'complete'")
        page.click(120, 300)
        page.screenshot("page.png")
        assert not browser.records.problems(), browser.records.problems()

Needs no display and no sound card, and works for root. The profile is in a temporary folder that is removed
with the browser, unless the caller gives a folder.
"""
import atexit
import fcntl
import os
import shutil
import signal
import subprocess
import tempfile
import time

from devtools import DevToolsError, Pipe, Session
from page import Page
from records import Records

CHROMIUM = os.environ.get("MURMELO_CHROMIUM", "/usr/bin/chromium")
START_SECONDS = 120  # a cold start on a busy machine
_SHARED_MEMORY_BYTES = 1 << 29  # with less in /dev/shm, Chromium is told not to use it

_FLAGS = (
    "--headless=new", "--remote-debugging-pipe",
    # It opens only pages of the project. Its sandbox refuses root, needs what containers lack, and would keep the fake
    # microphone from its file.
    "--no-sandbox",
    "--no-first-run", "--no-default-browser-check", "--no-service-autorun",
    # Chromium itself must not use the network, so that all requests are the page's.
    "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-default-apps",
    "--disable-domain-reliability", "--disable-client-side-phishing-detection", "--disable-breakpad",
    "--disable-features=OptimizationHints,MediaRouter,Translate,InterestFeedContentSuggestions",
    "--password-store=basic", "--disable-gpu", "--force-color-profile=srgb",
    "--disable-search-engine-choice-screen", "--metrics-recording-only",
)


class Browser:
    """One Chromium with one profile. `page` is its first tab; `records` has what happened in all tabs."""

    def __init__(self, microphone=None, ask=False, profile=None, language="en", flags=()):
        """
        microphone  a WAV file that the fake microphone plays once, from the moment when a page opens the microphone;
                    None: Chromium's own beeps. False: there is no microphone at all.
        ask         False: every page gets the microphone at once. True: `permission` decides. Without a window
                    Chromium cannot show its question: a microphone that is neither granted nor denied ("prompt")
                    is refused as if the user had closed the question.
        profile     a folder to use and to keep; None: a temporary one
        language    the value of navigator.language
        flags       more arguments for Chromium
        """
        self.records = Records()
        self._sessions = {}
        self._opened = []  # pages that were returned to tests
        self._offline = False
        self._pipe = None
        self._home = tempfile.mkdtemp(prefix="murmelo_browser_")
        atexit.register(self.kill)  # for a test that ends without closing its browser
        self.downloads = os.path.join(self._home, "downloads")
        profile = profile or os.path.join(self._home, "profile")
        os.makedirs(profile, exist_ok=True)
        os.makedirs(self.downloads)
        line = [CHROMIUM, *_FLAGS, "--user-data-dir=" + profile, "--lang=" + language, "--accept-lang=" + language]
        line += self._sound_flags(microphone, ask)
        if not _shared_memory_suffices():
            line.append("--disable-dev-shm-usage")
        try:
            self._start(line + list(flags) + ["about:blank"], language)
            self._pipe.call("Target.setAutoAttach", {
                "autoAttach": True, "waitForDebuggerOnStart": True, "flatten": True, "filter": _FILTER},
                seconds=START_SECONDS)
            self._pipe.call("Browser.setDownloadBehavior", {
                "behavior": "allow", "downloadPath": self.downloads, "eventsEnabled": True})
            self.page = self._page_of(lambda session: session.kind == "page")
        except Exception as error:
            output = self.output()
            self.kill()
            raise DevToolsError("%s did not start: %s\n%s" % (CHROMIUM, error, output)) from error

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def new_tab(self):
        """Another tab of the same profile, in front of the others. Those are then hidden."""
        target = self._pipe.call("Target.createTarget", {"url": "about:blank"})["targetId"]
        return self._page_of(lambda session: session.target["targetId"] == target)

    def next_page(self):
        """Waits for a tab that a page opens itself (window.open), and returns it."""
        handed_out = {page.target["targetId"] for page in self._opened}
        return self._page_of(lambda session: session.kind == "page" and session.target["targetId"] not in handed_out)

    def workers(self, kind="service_worker"):
        """The sessions of all pages' workers that exist now."""
        return [session for session in self._living() if session.kind == kind]

    def permission(self, name, setting, origin):
        """Sets a permission of the pages of origin: name as in navigator.permissions ("microphone", "persistent-storage");
        setting "granted", "denied" or "prompt". For the microphone the browser was made with ask=True."""
        self._pipe.call("Browser.setPermission", {
            "permission": {"name": name}, "setting": setting, "origin": origin})

    def offline(self, offline=True):
        """Switches the network off for every page and worker, also for later ones, or on again."""
        self._offline = offline
        for session in self._living():
            if session.kind in _WITH_NETWORK:
                try:
                    session.call("Network.emulateNetworkConditions", **_network(offline))
                except DevToolsError:
                    if session in self._living():  # else it has just ended
                        raise

    def downloaded(self, name, seconds=60):
        """Waits until the file of this name is downloaded. Returns its path."""
        path = os.path.join(self.downloads, name)
        limit = time.monotonic() + seconds
        while not os.path.exists(path) or os.path.exists(path + ".crdownload"):
            if time.monotonic() > limit:
                raise DevToolsError("%s was not downloaded; there is %s" % (name, os.listdir(self.downloads)))
            time.sleep(0.05)
        return path

    def call(self, method, **params):
        """Calls a method of the protocol on the browser as a whole."""
        return self._pipe.call(method, params)

    def output(self):
        """The last lines that Chromium wrote to its standard error."""
        with open(os.path.join(self._home, "stderr"), encoding="utf-8", errors="replace") as file:
            return "".join(file.readlines()[-20:])

    def close(self):
        """Ends the browser as its user would, so that it writes its profile. Removes a temporary profile."""
        try:
            self._pipe.call("Browser.close", seconds=30)
            self._child.wait(30)
        except (DevToolsError, subprocess.TimeoutExpired):
            pass  # kill ends it then
        self.kill()

    def kill(self):
        """Ends the browser at once, as a crash or an empty battery would, and cleans up."""
        if getattr(self, "_child", None):
            try:
                os.killpg(self._child.pid, signal.SIGKILL)  # its own group: child and children's children
            except ProcessLookupError:
                pass
            self._child.wait()
        if self._pipe:
            self._pipe.close()
        atexit.unregister(self.kill)
        # A process that is just ending may still write.
        for _ in range(50):
            shutil.rmtree(self._home, ignore_errors=True)
            if not os.path.exists(self._home):
                break
            time.sleep(0.1)

    @staticmethod
    def _sound_flags(microphone, ask):
        flags = [] if ask else ["--use-fake-ui-for-media-stream"]
        if microphone is not False:
            flags.append("--use-fake-device-for-media-stream")
        if microphone:
            flags.append("--use-file-for-fake-audio-capture=%s%%noloop" % os.path.abspath(microphone))
        return flags

    def _start(self, line, language):
        # Chromium expects its pipe on 3 and 4. Our ends have larger numbers, so that moving overwrites nothing, and
        # the stoppers keep 3 and 4 from becoming a descriptor that Popen needs itself.
        to_browser, from_browser = [_above(9, pair) for pair in (os.pipe(), os.pipe())]
        stoppers = [os.open(os.devnull, os.O_RDONLY)]
        while stoppers[-1] < 5:
            stoppers.append(os.open(os.devnull, os.O_RDONLY))

        def move():
            os.dup2(to_browser[0], 3)
            os.dup2(from_browser[1], 4)

        environment = dict(os.environ, HOME=self._home, TMPDIR=self._home, LANGUAGE=language, **_NO_SOUND_CARD)
        for name in list(environment):
            if name.startswith("XDG_") or name in _DESKTOP:
                del environment[name]
        with open(os.path.join(self._home, "stderr"), "wb") as errors:
            self._child = subprocess.Popen(
                line, stdin=subprocess.DEVNULL, stdout=errors, stderr=errors, preexec_fn=move, pass_fds=(3, 4),
                start_new_session=True, env=environment, cwd=self._home)
        for end in [to_browser[0], from_browser[1], *stoppers]:
            os.close(end)
        self._pipe = Pipe(from_browser[0], to_browser[1], self._on_event)

    def _on_event(self, number, method, params):
        if method == "Target.attachedToTarget":
            self._attach(Session(self._pipe, params["sessionId"], params["targetInfo"]))
        elif method == "Target.detachedFromTarget":
            self._sessions.pop(params["sessionId"], None)
            self._pipe.fail_session(params["sessionId"], "the page or worker has gone")
        elif number in self._sessions:
            session = self._sessions[number]
            self.records.take(session, method, params)
            if method == "Page.javascriptDialogOpening":
                session.send("Page.handleJavaScriptDialog", accept=True)
            elif method == "Inspector.targetCrashed":
                self._pipe.fail_session(number, "the page has crashed")

    def _attach(self, session):
        """A page or worker has begun and waits: subscribes to its events, then lets it continue."""
        for method in Records.WANTED:
            session.send(method)
        if session.kind == "page":
            session.send("Page.enable")
        if session.kind in ("page", "iframe"):
            session.send("Target.setAutoAttach", autoAttach=True, waitForDebuggerOnStart=True, flatten=True,
                         filter=[{"type": "service_worker", "exclude": True}] + _FILTER)  # the browser attaches those
        if self._offline and session.kind in _WITH_NETWORK:
            session.send("Network.emulateNetworkConditions", **_network(True))
        session.send("Runtime.runIfWaitingForDebugger")
        self._sessions[session.number] = session

    def _living(self):
        with self._pipe.changed:
            return list(self._sessions.values())

    def _page_of(self, matches):
        """Waits for the page that matches."""
        found = []

        def look():
            found[:] = [session for session in list(self._sessions.values()) if matches(session)]
            return found

        with self._pipe.changed:
            if not self._pipe.changed.wait_for(look, START_SECONDS):
                raise DevToolsError("no such page came")
        page = Page(found[0], self.records)
        self._opened.append(page)
        return page


# The same on every machine: no sound card (Chromium then plays without a device, in real time), no desktop.
_NO_SOUND_CARD = {"ALSA_CONFIG_PATH": os.devnull, "PULSE_SERVER": "unix:/nonexistent"}
_DESKTOP = ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS")
# All targets except the browser itself and the pages of its own window.
_FILTER = [{"type": kind, "exclude": True} for kind in ("browser", "tab", "browser_ui", "webview")] + [{}]
_WITH_NETWORK = ("page", "iframe", "worker", "shared_worker", "service_worker")


def _network(offline):
    return {"offline": offline, "latency": 0, "downloadThroughput": -1, "uploadThroughput": -1}


def _above(lowest, pair):
    """Moves a pipe to descriptors greater than lowest."""
    moved = [fcntl.fcntl(end, fcntl.F_DUPFD_CLOEXEC, lowest + 1) for end in pair]
    for end in pair:
        os.close(end)
    return moved


def _shared_memory_suffices():
    try:
        space = os.statvfs("/dev/shm")
    except OSError:
        return False
    return os.access("/dev/shm", os.W_OK) and space.f_bavail * space.f_frsize >= _SHARED_MEMORY_BYTES
