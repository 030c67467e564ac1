#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How long the program takes to a painted window with a large library, beside the same start with an empty one.

Painted is the whole window: the list of sources, which comes with the library, and the page beside it, which comes last, from
an engine of its own. How long the list alone takes is told as well.

--list names the benchmark; its name runs it and prints "bench NAME RATIO BAR YARDSTICK". Over the bar it fails.
"""

import pathlib
import shutil
import statistics
import struct
import subprocess
import sys
import time

import numpy

TOP = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOP / "tests/journey"))
from environment import Environment, wait_until  # noqa: E402
from library_file import write_library  # noqa: E402

NAME, BAR, SONGS, ROUNDS = "start-100k", 1.6, 100_000, 7
LIBRARY = pathlib.Path("Music/Zib/Zib Music Library.zib")
# Below the rows of the lists that fill themselves when a service answers.
TOP_EDGE, BOTTOM_EDGE, LIST_WIDTH = 275, 60, 200  # of 1280


def song(number):
    artist = number % 2500
    identity = f"{number * 2654435761 % 2 ** 64:016x}"
    return identity, {
        "ID": identity, "Name": f"A song of some length, number {number}", "Artist": f"Artist & Friends {artist}",
        "Album": f"The album called {number // 12}", "Genre": f"Genre {number % 40}", "Year": 1960 + number % 60,
        "Duration": 120 + number % 300, "Position": number % 12 + 1,
        "Location": f"http://127.0.0.1:8642/audio/{artist}/{identity}.mp3", "Hotness": number % 101,
        "Familiarity": number % 97, "Play Count": number % 50}


class Screen:
    """The display's own memory, which is read without asking anybody for it."""

    def __init__(self, environment):
        path = environment.root / "Xvfb_screen0"
        head = struct.unpack(">25I", path.read_bytes()[:100])
        self._width, self._height, line, colours = head[4], head[5], head[12], head[19]
        self._pixels = numpy.memmap(path, dtype=numpy.uint8, mode="r", offset=head[0] + 12 * colours,
                                    shape=(self._height, line))

    def part(self, edges):
        left, top, right, bottom = edges
        return self._pixels[top:bottom, 4 * left:4 * right]

    def library_place(self):
        return self._pixels[TOP_EDGE:self._height - BOTTOM_EDGE, :4 * self._width]


class Start:
    """The program over one library, started again and again."""

    def __init__(self, environment, screen, library):
        self._environment, self._screen, self._library = environment, screen, library
        self._painted = None
        self.seconds = []
        self.list_seconds = []

    def greet(self):
        """The first start of all is another: it welcomes."""
        self.open()
        self._end()

    def look(self):
        """Learns what the place of the library looks like once nothing changes any more."""
        self.open()
        self._end()

    def open(self):
        """The program with its window, once nothing in it changes any more."""
        self._lay_library()
        self._start()
        wait_until(lambda: self._window(), 60, "the window")
        before = [self._screen.library_place().copy(), time.monotonic()]

        def settled():
            now = self._screen.library_place()
            if not numpy.array_equal(now, before[0]):
                before[:] = [now.copy(), time.monotonic()]
            return time.monotonic() - before[1] > 4

        wait_until(settled, 120, "the window to stand still")
        self._painted = before[0]

    def measure(self):
        blank = self._screen.library_place()
        assert not numpy.array_equal(blank, self._painted), "the last window is still there"
        self._lay_library()
        begin = time.monotonic()
        self._start()
        listed = None
        while not numpy.array_equal(self._screen.library_place(), self._painted):
            if listed is None and numpy.array_equal(self._screen.library_place()[:, :4 * LIST_WIDTH],
                                                    self._painted[:, :4 * LIST_WIDTH]):
                listed = time.monotonic() - begin
            assert time.monotonic() - begin < 60, "the library was not painted"
            time.sleep(0.004)
        self.seconds.append(time.monotonic() - begin)
        self.list_seconds.append(listed or self.seconds[-1])
        self._end()

    def _lay_library(self):
        """Anew each time, since the program writes it at its end."""
        target = self._environment.home / LIBRARY
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(self._library, target)

    def _start(self):
        environment = dict(self._environment.env)
        del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]  # as a person without aids has it
        self._process = subprocess.Popen([str(TOP / "build/release/bin/zib")], env=environment,
                                         stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._environment.processes.append(self._process)

    def _window(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Zib$"], env=self._environment.env,
                               capture_output=True, check=False)
        return found.stdout.split()

    def _end(self):
        time.sleep(0.5)  # what a start sets going besides has settled
        self._process.terminate()
        self._process.wait(30)
        wait_until(lambda: not self._window(), 10, "the window to go")
        time.sleep(0.3)


def bench():
    environment = Environment("1280x800")
    try:
        libraries = {name: environment.root / f"{name}.zib" for name in ("empty", "large")}
        write_library(libraries["empty"], {})
        write_library(libraries["large"], dict(song(number) for number in range(SONGS)))
        screen = Screen(environment)
        starts = {name: Start(environment, screen, path) for name, path in libraries.items()}
        starts["empty"].greet()
        for start in starts.values():
            start.look()
        for _ in range(ROUNDS):
            for start in starts.values():
                start.measure()
    finally:
        environment.close()
    medians = {name: statistics.median(start.seconds) for name, start in starts.items()}
    for name, start in starts.items():
        print(f"{NAME}: {name} {1000 * medians[name]:.0f} ms ({1000 * min(start.seconds):.0f} to "
              f"{1000 * max(start.seconds):.0f}), its list of sources "
              f"{1000 * statistics.median(start.list_seconds):.0f} ms", file=sys.stderr)
    ratio = medians["large"] / medians["empty"]
    print(f"bench {NAME} {ratio:.3f} {BAR:.1f} the same start with an empty library", flush=True)
    return ratio <= BAR


def main():
    if sys.argv[1:] == ["--list"]:
        print(NAME)
        return 0
    return 0 if bench() else 1


if __name__ == "__main__":
    sys.exit(main())
