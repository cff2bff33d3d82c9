# SPDX-License-Identifier: MIT
"""Records what pages and workers do: their errors and warnings, and their requests."""
import threading
from dataclasses import dataclass
from urllib.parse import urlsplit

from devtools import DevToolsError

_LOCAL = ("data", "blob", "about", "chrome", "chrome-extension", "chrome-untrusted", "devtools", "filesystem")


@dataclass(frozen=True)
class Record:
    """`kind` is one of: console-error, console-warning, log-error, exception, violation, request, crash, dialog (the
    page asked or told something in a box of the browser; it is accepted), file-chooser."""
    kind: str
    where: str  # the kind of target: page, service_worker, ...
    target: str  # the target's id, by which pages are distinguished
    text: str  # for a request its address

    def __str__(self):
        return "%s (%s): %s" % (self.kind, self.where, self.text)


def origin_of(address):
    """Scheme, host and port of an address; the empty string for one without network (data:, blob:, about:)."""
    parts = urlsplit(address)
    return "" if parts.scheme in _LOCAL else "%s://%s" % (parts.scheme, parts.netloc)


class Records:
    """All records of one browser, oldest first. The reading thread adds, tests read."""

    WANTED = ("Runtime.enable", "Log.enable", "Network.enable", "Audits.enable")

    def __init__(self):
        self._records = []
        self._changed = threading.Condition()  # with a lock that one thread may take twice

    def all(self, *kinds, target=None):
        """The records of these kinds (without a kind: all), of one target or of all."""
        with self._changed:
            return [record for record in self._records
                    if (not kinds or record.kind in kinds) and (target is None or record.target == target)]

    def problems(self, target=None):
        """The records that a correct run has not: errors, uncaught exceptions, crashes, violations of the policy."""
        return self.all("console-error", "log-error", "exception", "crash", "violation", target=target)

    def requests(self, target=None):
        """The address of every request, in the order in which they began."""
        return [record.text for record in self.all("request", target=target)]

    def foreign_requests(self, origin):
        """The requests to any other origin than this one ("http://localhost:8000")."""
        return [address for address in self.requests() if origin_of(address) not in ("", origin_of(origin))]

    def until(self, find, seconds=60):
        """Waits until find(records) returns something true, and returns that. Events may come late."""
        with self._changed:
            if not self._changed.wait_for(lambda: find(self), seconds):
                raise DevToolsError("not recorded in %d s; there is:\n%s" % (seconds, "\n".join(map(str, self.all()))))
            return find(self)

    def take_out(self, record):
        """Removes one record."""
        with self._changed:
            self._records.remove(record)

    def clear(self):
        """Removes all records, for a test that has checked the errors that it has caused."""
        with self._changed:
            self._records.clear()

    def take(self, session, method, params):
        """Turns an event of the protocol into a record, if it is one."""
        if method == "Inspector.targetCrashed" and session.kind == "service_worker":
            return  # also sent when the browser only stops an idle worker
        found = _READERS.get(method, lambda _: None)(params)
        if found:
            with self._changed:
                self._records.append(Record(found[0], session.kind, session.target["targetId"], found[1]))
                self._changed.notify_all()


def _at(params):
    """"file:line" of the place where it happened."""
    frames = params.get("stackTrace", {}).get("callFrames", [])
    if frames:
        return " (%s:%d)" % (frames[0]["url"], frames[0]["lineNumber"] + 1)
    if params.get("url"):
        return " (%s:%d)" % (params["url"], params.get("lineNumber", -1) + 1)
    return ""


def _console(params):
    kinds = {"error": "console-error", "assert": "console-error", "warning": "console-warning"}
    if params["type"] not in kinds:
        return None
    words = [str(value.get("value", value.get("description", value["type"]))) for value in params["args"]]
    return kinds[params["type"]], " ".join(words) + _at(params)


def _log(params):
    entry = params["entry"]
    kinds = {"error": "log-error", "warning": "console-warning"}
    return (kinds[entry["level"]], entry["text"] + _at(entry)) if entry["level"] in kinds else None


def _exception(params):
    details = params["exceptionDetails"]
    thrown = details.get("exception", {})
    return "exception", "%s %s%s" % (details["text"], thrown.get("description", thrown.get("value", "")), _at(details))


def _issue(params):
    issue = params["issue"]
    if issue["code"] != "ContentSecurityPolicyIssue":
        return None
    details = issue["details"]["contentSecurityPolicyIssueDetails"]
    return "violation", "%s: %s" % (details["violatedDirective"],
                                    details.get("blockedURL") or details["contentSecurityPolicyViolationType"])


def _short(address):
    """Shortens an address: one of data: may be as long as a picture."""
    return address if origin_of(address) else address[:80]


_READERS = {
    "Runtime.consoleAPICalled": _console,
    "Log.entryAdded": _log,
    "Runtime.exceptionThrown": _exception,
    "Audits.issueAdded": _issue,
    "Network.requestWillBeSent": lambda params: ("request", _short(params["request"]["url"])),
    "Network.webSocketCreated": lambda params: ("request", params["url"]),
    "Network.webTransportCreated": lambda params: ("request", params["url"]),
    "Inspector.targetCrashed": lambda params: ("crash", "the page has crashed"),
    "Page.fileChooserOpened": lambda params: ("file-chooser", str(params["backendNodeId"])),
    "Page.javascriptDialogOpening": lambda params: ("dialog", "%s: %s" % (params["type"], params["message"])),
}
