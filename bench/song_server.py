# SPDX-License-Identifier: GPL-3.0-or-later
"""song_server.py FOLDER: serves the folder's files over loopback HTTP, as slowly as an address asks for.

/fast/FILE               as fast as it goes
/limited/RATE/FILE       evenly at RATE bytes a second
/jitter/SEED/RATE/FILE   at RATE bytes a second, each piece late by up to 200 ms, the same for the same SEED

Prints its port. Byte ranges are honoured. Ends with its standard input.
"""

import http.server
import pathlib
import random
import sys
import threading
import time

PIECES_A_SECOND = 100
JITTER_PIECE = 4096
JITTER = 0.2  # seconds


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    disable_nagle_algorithm = True
    wbufsize = -1

    def do_GET(self):
        *way, name = self.path.strip("/").split("/")
        data = (FOLDER / name).read_bytes()
        begin = 0
        asked = self.headers.get("Range", "")
        if asked.startswith("bytes="):
            begin = int(asked[6:].split("-")[0])
        if begin >= len(data) > 0:
            self.send_error(416)
            return
        self.send_response(206 if asked else 200)
        self.send_header("Content-Type", "audio/mpeg")
        self.send_header("Accept-Ranges", "bytes")
        self.send_header("Connection", "close")
        self.send_header("Content-Length", str(len(data) - begin))
        if asked:
            self.send_header("Content-Range", f"bytes {begin}-{len(data) - 1}/{len(data)}")
        self.end_headers()
        self.wfile.flush()
        try:
            self._send(way, memoryview(data)[begin:])
        except OSError:
            pass  # the player has gone

    def _send(self, way, data):
        if way[0] == "fast":
            self.connection.sendall(data)
            return
        if way[0] == "limited":
            rate = float(way[1])
            piece, late = int(rate / PIECES_A_SECOND), lambda: 0
        else:
            chance = random.Random(int(way[1]))
            rate = float(way[2])
            piece, late = JITTER_PIECE, lambda: chance.uniform(0, JITTER)
        due = time.monotonic()
        for at in range(0, len(data), piece):
            time.sleep(max(0, due + late() - time.monotonic()))
            self.connection.sendall(data[at:at + piece])
            # A player that does not read holds the link up; it may not be repaid in a burst.
            due = max(due + piece / rate, time.monotonic() - JITTER)

    def log_message(self, *_):
        pass


if __name__ == "__main__":
    FOLDER = pathlib.Path(sys.argv[1])
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    print(server.server_address[1], flush=True)
    sys.stdin.read()
