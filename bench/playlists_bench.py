#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How long the playlist service takes to give a playlist back and to list them, with 50,000 stored, beside a reply of
the same size that its server has ready: the time that 95 of 100 requests keep to, on loopback.

--list names the benchmarks; a name runs one and prints "bench NAME RATIO BAR YARDSTICK". Over the bar it fails.
"""

import pathlib
import random
import sqlite3
import statistics
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOP / "tests/catalogue/playlists"))
from playlist_client import Service  # noqa: E402

PROGRAM, STATIC = TOP / "build/release/bin/zib-catalogue", TOP / "build/release/bench/static_server"
BARS = {"playlists-get": 3.0, "playlists-list": 5.0}
STORED, PUBLISHED, SONGS = 50_000, 100, 15
ROUNDS, SECONDS, CLIENTS = 7, 2, 4
WORDS = "amber blue city dawn early field golden harbour island june kind late morning night ocean".split()
SCRIPT = """
local targets = {%s}
local at = 0
request = function()
  at = at %% #targets + 1
  return wrk.format("GET", targets[at])
end
done = function(summary, latency)
  local e = summary.errors
  io.write(string.format("p95 %%d errors %%d\\n", latency:percentile(95), e.connect + e.read + e.write + e.status + e.timeout))
end
"""


def publish(service, number):
    names = [WORDS[(number + step * 7) % len(WORDS)] for step in range(3)]
    tracks = [{"ID": f"{number * 1000 + song:032x}", "Name": f"A song of some length, number {song}",
               "Artist": f"Artist & Friends {number % 30}", "Album": f"The album called {song}", "Duration": 120 + song,
               "Location": f"http://127.0.0.1:8344/audio/{number * 1000 + song:032x}.mp3"} for song in range(SONGS)]
    service.publish(f"User_{number}-{number:032x}", " ".join(names), tracks, tags=",".join(names[:2]),
                    description="What one listens to when the day is long.", artists=tracks[0]["Artist"])


def multiply(database):
    """Makes many playlists of the published ones, ids and times apart."""
    connection = sqlite3.connect(database)
    columns = [row[1] for row in connection.execute("PRAGMA table_info(playlists)")]
    others = ", ".join(column for column in columns if column not in ("id", "published"))
    originals = connection.execute("SELECT id, published FROM playlists").fetchall()
    numbers = random.Random(1)
    for copy in range(STORED // PUBLISHED - 1):
        for identity, published in originals:
            new = numbers.randrange(1, 2 ** 31 - 1)
            if connection.execute(f"INSERT OR IGNORE INTO playlists (id, published, {others}) SELECT ?, ?, {others}"
                                  " FROM playlists WHERE id = ?", (new, published - copy * 1000, identity)).rowcount == 1:
                connection.execute("INSERT INTO playlist_terms (kind, term, published, playlist)"
                                   " SELECT kind, term, published - ?, ? FROM playlist_terms WHERE playlist = ?",
                                   (copy * 1000, new, identity))
    connection.commit()
    ids = [row[0] for row in connection.execute("SELECT id FROM playlists")]
    middle = connection.execute("SELECT published, id FROM playlists ORDER BY published LIMIT 1 OFFSET ?",
                                (STORED // 2,)).fetchone()
    connection.close()
    return numbers.sample(ids, 5000), middle


def p95(url, script):
    """In microseconds."""
    output = subprocess.run(["wrk", "-t1", f"-c{CLIENTS}", f"-d{SECONDS}s", "-s", script, url], check=True,
                            capture_output=True, text=True).stdout
    words = output.strip().split("\n")[-1].split()
    if words[0] != "p95" or words[3] != "0":
        raise RuntimeError(f"some requests failed: {output}")
    return int(words[1])


class StaticServer:
    def __init__(self, size):
        self._process = subprocess.Popen([STATIC, str(size)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.url = self._process.stdout.readline().split()[1]

    def end(self):
        self._process.stdin.close()
        self._process.wait(60)
        self._process.stdout.close()


def measure(name, folder, service, targets):
    script = folder / "script.lua"
    script.write_text(SCRIPT % ", ".join(f'"{target}"' for target in targets))
    size = round(statistics.mean(len(service.request("GET", target)[1]) for target in targets[:50]))
    static = StaticServer(size)
    try:
        times = [(p95(service.url, script), p95(static.url, script)) for _ in range(ROUNDS)]
    finally:
        static.end()
    ours, theirs = (statistics.median(column) for column in zip(*times))
    ratio = ours / theirs
    print(f"  {size} bytes: {ours / 1000:.2f} ms, the static reply {theirs / 1000:.2f} ms", file=sys.stderr)
    print(f"bench {name} {ratio:.2f} {BARS[name]} the same server's static reply of the same size", flush=True)
    return ratio <= BARS[name]


def main(name):
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        service = Service(PROGRAM, folder, "--rate", "0")
        for number in range(PUBLISHED):
            publish(service, number)
        service.end()
        ids, (published, identity) = multiply(folder / "data/playlists.sqlite")
        service = Service(PROGRAM, folder, "--rate", "0")
        try:
            if name == "playlists-get":
                targets = [f"/playlists/getplaylist.php?id={number}" for number in ids]
            else:
                targets = ["/playlists/", f"/playlists/?before={published}-{identity}", "/playlists/?tag=golden",
                           f"/playlists/?tag=june&before={published}-{identity}", "/playlists/?q=ocean", "/playlists/?q=harb+oce"]
            return measure(name, folder, service, targets)
        finally:
            service.end()


if __name__ == "__main__":
    if sys.argv[1:] == ["--list"]:
        print("\n".join(BARS))
    else:
        sys.exit(0 if main(sys.argv[1]) else 1)
