# SPDX-License-Identifier: MIT
"""A folder on a local web server, for as long as a test runs."""
import os
import signal
import subprocess
import sys

_SERVER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../tools/serve-web")


class Served:
    """    with Served("build/web") as address: page.open(address)

    `stop` and `start` stop the server and start it again at the same address.
    """

    def __init__(self, folder, port=0):
        self._folder, self._port, self._child = folder, port, None

    def __enter__(self):
        self.start()
        return self.address

    def __exit__(self, *_):
        self.stop()

    def start(self):
        self._child = subprocess.Popen([sys.executable, "-B", _SERVER, self._folder, "--port", str(self._port)],
                                       stdout=subprocess.PIPE, text=True)
        self.address = self._child.stdout.readline().strip()
        if not self.address:
            raise RuntimeError("the server ended with status %d" % self._child.wait())
        self._port = int(self.address.rstrip("/").rsplit(":", 1)[1])

    def stop(self):
        if self._child:
            self._child.send_signal(signal.SIGTERM)
            self._child.wait()
            self._child.stdout.close()
            self._child = None

    @property
    def origin(self):
        return self.address.rstrip("/")
