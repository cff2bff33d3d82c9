# SPDX-License-Identifier: MIT
"""The browser's debugging protocol over a pair of pipes: JSON messages, each ended by a NUL byte."""
import itertools
import json
import os
import threading

CALL_SECONDS = 120  # long enough for a busy machine; only a browser that hangs needs more


class DevToolsError(Exception):
    """The browser has refused a call, has not replied, or has ended."""


class Pipe:
    """Sends calls from any thread; one thread of its own reads the replies and the events.

    Takes over both file descriptors. `on_event(session, method, params)` runs on the reading thread: it may
    `send`, but never `call`, which would wait for a reply that this thread itself must read.
    """

    def __init__(self, read_end, write_end, on_event):
        self._read_end, self._write_end, self._on_event = read_end, write_end, on_event
        self._numbers = itertools.count(1)
        self._waiting = {}  # from a call's number to its session and reply
        self._gone = None  # the reason, if the browser has ended
        self.changed = threading.Condition()  # notified after every message
        self._writing = threading.Lock()
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def send(self, method, params=None, session=None):
        """Sends a call and does not wait for its reply. Returns its number."""
        number = next(self._numbers)
        self._write(number, method, params, session)
        return number

    def call(self, method, params=None, session=None, seconds=CALL_SECONDS):
        """Sends a call and waits for its reply. Returns the result; an error raises DevToolsError."""
        number = next(self._numbers)
        with self.changed:
            self._waiting[number] = [session, None]
        try:
            self._write(number, method, params, session)
            with self.changed:
                replied = self.changed.wait_for(lambda: self._waiting[number][1] or self._gone, seconds)
                reply = self._waiting[number][1]
        finally:
            with self.changed:
                del self._waiting[number]
        if reply is None:
            raise DevToolsError("%s: %s" % (method, self._gone if replied else "no reply in %d s" % seconds))
        if "error" in reply:
            raise DevToolsError("%s: %s" % (method, reply["error"].get("message", reply["error"])))
        return reply["result"]

    def fail_session(self, session, reason):
        """Makes the calls fail that wait for a reply of a page that has ended."""
        with self.changed:
            for entry in self._waiting.values():
                if entry[0] == session and entry[1] is None:
                    entry[1] = {"error": {"message": reason}}
            self.changed.notify_all()

    def close(self):
        """Closes the pipe, which ends the browser if it still runs."""
        with self._writing:
            if self._write_end is not None:
                os.close(self._write_end)
                self._write_end = None

    def _write(self, number, method, params, session):
        message = {"id": number, "method": method, "params": params or {}}
        if session:
            message["sessionId"] = session
        data = memoryview(json.dumps(message).encode() + b"\0")
        with self._writing:
            if self._write_end is None:
                raise DevToolsError("%s: the pipe is closed" % method)
            try:
                while data:
                    data = data[os.write(self._write_end, data):]
            except OSError as error:
                raise DevToolsError("%s: %s" % (method, self._gone or error)) from error

    def _read(self):
        reason = "the browser has closed its pipe"
        pieces = []  # the parts of an incomplete message
        try:
            while True:
                data = os.read(self._read_end, 1 << 16)
                if not data:
                    break
                *ends, rest = data.split(b"\0")
                for end in ends:
                    self._take(json.loads(b"".join(pieces + [end])))
                    pieces = []
                if rest:
                    pieces.append(rest)
        except Exception as error:  # after any error, calls must fail instead of waiting for ever
            reason = "reading from the browser failed: %r" % error
        with self.changed:
            self._gone = reason
            self.changed.notify_all()
        os.close(self._read_end)

    def _take(self, message):
        if "id" not in message:
            self._on_event(message.get("sessionId"), message["method"], message.get("params", {}))
        with self.changed:
            if message.get("id") in self._waiting:
                self._waiting[message["id"]][1] = message
            self.changed.notify_all()


class Session:
    """One page or worker of the browser, as the protocol addresses it."""

    def __init__(self, pipe, number, target):
        self._pipe, self.number, self.target = pipe, number, target

    def call(self, method, seconds=CALL_SECONDS, **params):
        """Calls a method of the protocol for which there is no operation here."""
        return self._pipe.call(method, params, self.number, seconds)

    def send(self, method, **params):
        """As call, without waiting for the reply."""
        return self._pipe.send(method, params, self.number)

    @property
    def kind(self):
        """"page", "service_worker", "worker", "worklet" and others."""
        return self.target["type"]
