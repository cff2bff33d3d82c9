# SPDX-License-Identifier: MIT
"""tools/serve-web serves files as browsers need them, and reports its errors."""
import http.client
import os
import signal
import socket
import subprocess
import sys
import tempfile
import unittest

from served import Served

_SERVER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../tools/serve-web")


def run(*arguments):
    """Runs a call that fails. Returns its status and its output."""
    done = subprocess.run([sys.executable, "-B", _SERVER, *arguments], capture_output=True, text=True, timeout=300)
    return done.returncode, done.stdout + done.stderr


class ServeTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="murmelo_serve_")
        self.addCleanup(scratch.cleanup)
        self.folder = os.path.join(scratch.name, "web")
        os.makedirs(os.path.join(self.folder, "empty"))
        for name in ("index.html", "a.js", "a.wasm", "a.webmanifest", "a.css", "a.png", "a.wav", "a.other"):
            with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
                file.write("content of " + name)
        with open(os.path.join(scratch.name, "secret"), "w", encoding="utf-8") as file:
            file.write("not for browsers")

    def get(self, server, path, **headers):
        connection = http.client.HTTPConnection(
            "127.0.0.1", int(server.address.rstrip("/").rsplit(":", 1)[1]), timeout=300)
        connection.request("GET", path, headers=headers)
        reply = connection.getresponse()
        body = reply.read().decode()
        connection.close()
        return reply, body

    def served(self):
        server = Served(self.folder)
        server.start()
        self.addCleanup(server.stop)
        return server

    def test_gives_each_file_the_type_that_browsers_demand(self):
        server = self.served()
        for path, kind in (("/", "text/html"), ("/a.js", "text/javascript"), ("/a.wasm", "application/wasm"),
                           ("/a.webmanifest", "application/manifest+json"), ("/a.css", "text/css"),
                           ("/a.png", "image/png"), ("/a.wav", "audio/wav"), ("/a.other", "application/octet-stream")):
            reply, body = self.get(server, path)
            self.assertEqual(200, reply.status, path)
            self.assertEqual(kind, reply.headers["Content-Type"].split(";")[0], path)
            self.assertEqual("content of " + (path[1:] or "index.html"), body)

    def test_lets_no_browser_keep_an_old_file(self):
        server = self.served()
        reply, body = self.get(server, "/a.js", **{"If-Modified-Since": "Fri, 01 Jan 2100 00:00:00 GMT"})
        self.assertEqual((200, "content of a.js"), (reply.status, body))
        self.assertEqual("no-store", reply.headers["Cache-Control"])

    def test_serves_the_folder_and_nothing_else(self):
        server = self.served()
        for path in ("/missing", "/../secret", "/%2e%2e/secret", "/empty/"):
            reply, body = self.get(server, path)
            self.assertEqual(404, reply.status, path)
            self.assertNotIn("not for browsers", body)

    def test_says_which_port_is_in_use(self):
        with socket.create_server(("127.0.0.1", 0)) as other:
            port = other.getsockname()[1]
            status, output = run(self.folder, "--host", "127.0.0.1", "--port", str(port))
        self.assertEqual(1, status)
        self.assertEqual("serve-web: port %d is in use; leave out --port to get a free one\n" % port, output)

    def test_takes_the_next_port_when_none_is_asked_for(self):
        servers = [self.start_without_port() for _ in range(2)]
        ports = [int(line.strip().rstrip("/").rsplit(":", 1)[1]) for _, line in servers]
        self.assertNotEqual(ports[0], ports[1])
        for port in ports:
            self.assertIn(port, range(8000, 8020))

    def start_without_port(self):
        child = subprocess.Popen([sys.executable, "-B", _SERVER, self.folder], stdout=subprocess.PIPE, text=True)
        self.addCleanup(child.stdout.close)
        self.addCleanup(child.wait)
        self.addCleanup(child.terminate)
        return child, child.stdout.readline()

    def test_says_that_there_is_no_folder_and_no_such_host(self):
        self.assertEqual((1, "serve-web: there is no folder /nowhere\n"), run("/nowhere"))
        status, output = run(self.folder, "--host", "192.0.2.1", "--port", "0")
        self.assertEqual(1, status)
        self.assertRegex(output, r"^serve-web: cannot listen on 192\.0\.2\.1, port 0: .+\n$")
        for port in ("-1", "65536", "x"):
            self.assertEqual(2, run(self.folder, "--port", port)[0])

    def test_ends_quietly(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            child = subprocess.Popen(
                [sys.executable, "-B", _SERVER, self.folder, "--port", "0"], stdout=subprocess.PIPE,
                stderr=subprocess.PIPE, text=True,
                preexec_fn=lambda: signal.signal(signal.SIGINT, signal.default_int_handler))
            output = child.stdout.readline() + child.stdout.readline()
            child.send_signal(number)
            rest, errors = child.communicate(timeout=300)
            self.assertEqual((0, "\n", ""), (child.returncode, rest, errors))
            self.assertRegex(output, r"^http://localhost:[0-9]+/\n.*https")


if __name__ == "__main__":
    unittest.main()
