"""The sources of the running program, as a test finds or sets them."""

import json
import os
import re
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path

STORE = Path(os.environ["XDG_CONFIG_HOME"]) / "vesk" / "defaults.json"


def demo_address():
    """The URL of the demo source, as the source list has it."""
    return re.search(r"http://127\.0\.0\.1:\d+/demo/", STORE.read_text(encoding="utf-8")).group()


def store_sources(*sources):
    """Makes them the user's own; each is an address, a name and whether it is switched on."""
    stored = [{"url": url, "name": name, "enabled": enabled} for url, name, enabled in sources]
    STORE.write_text(json.dumps({"VeskDefaultRepos_v1": stored}), encoding="utf-8")


class HeldSource:
    """A source on this machine that has nothing, and does not even say so until it is told to."""

    def __init__(self):
        source = self
        self.released = threading.Event()
        # The requests so far.
        self.asked = 0

        class Handler(BaseHTTPRequestHandler):
            def do_GET(self):
                source.asked += 1
                source.released.wait()
                self.send_error(404)

            def log_message(self, *arguments):
                pass

        class Server(ThreadingHTTPServer):
            def handle_error(self, request, client_address):
                """A client that goes away in the middle of an answer is nothing to report."""

        self.server = Server(("127.0.0.1", 0), Handler)
        self.address = f"http://127.0.0.1:{self.server.server_address[1]}/"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def hold(self):
        self.released.clear()

    def release(self):
        self.released.set()

    def end(self):
        self.release()
        self.server.shutdown()
        self.server.server_close()
