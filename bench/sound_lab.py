# SPDX-License-Identifier: GPL-3.0-or-later
"""Two players side by side: a sound server, a sink of its own for each whose monitor is recorded, a server of songs.

What is measured of one is measured of the other in the same way.
"""

import contextlib
import json
import os
import pathlib
import socket
import subprocess
import sys
import threading
import time

import numpy

TOP = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOP / "tests/journey"))
from environment import Environment, first_line, wait_until  # noqa: E402

BUILD = TOP / "build/release"
RATE = 44100


class Ear:
    """Records a sink's monitor, and when each piece of it came."""

    def __init__(self, lab, sink):
        self._lock = threading.Lock()
        self._data = bytearray()
        self._pieces = []  # of each, the number of its first sample and the time of sample 0 as it tells it
        process = lab.start(["parec", "-d", f"{sink}.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
                             "--latency-msec=5", "--raw"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        threading.Thread(target=self._read, args=(process.stdout,), daemon=True).start()
        wait_until(lambda: self.heard() > RATE // 2, 20, "the recorder")

    def _read(self, pipe):
        while chunk := pipe.read1(65536):
            now = time.monotonic()
            with self._lock:
                begin = len(self._data) // 2
                self._data += chunk
                self._pieces.append((begin, now - begin / RATE))

    def heard(self):
        with self._lock:
            return len(self._data) // 2

    def samples(self, begin=0):
        with self._lock:
            piece = bytes(self._data[2 * begin:len(self._data) // 2 * 2])
        return numpy.frombuffer(piece, dtype="<i2")

    def first_sound(self, begin, seconds):
        """The time at which the first sample after that one was played that is not silent.

        The monitor has a piece as the sink begins to play it. The time is reckoned from the quickest of the pieces
        around, since the machine holds some up.
        """
        at = [begin]

        def look():
            found = numpy.flatnonzero(self.samples(at[0]))
            if found.size:
                return at[0] + int(found[0]) + 1
            at[0] = max(begin, self.heard() - 1)
            return None

        sample = wait_until_often(look, seconds, "the first sound") - 1
        with self._lock:
            return sample / RATE + min(zero for begun, zero in self._pieces if abs(begun - sample) < RATE // 4)

    def wait_for_silence(self):
        """A quarter of a second of it."""
        wait_until(lambda: self.samples(self.heard() - RATE // 4).any() == False, 10, "silence")  # noqa: E712

    def gaps(self, begin, end):
        """How often it was silent for a millisecond or longer between the first and the last sound."""
        sounding = numpy.flatnonzero(self.samples(begin)[:end - begin])
        return int((numpy.diff(sounding) > RATE // 1000).sum())


class Player:
    """A player with a sink and an ear of its own."""

    def __init__(self, lab, name):
        self.sink = f"bench-{name}"
        lab.run(["pactl", "load-module", "module-null-sink", f"sink_name={self.sink}", f"rate={RATE}", "channels=2"])
        self.ear = Ear(lab, self.sink)
        self.environment = {**lab.env, "PULSE_SINK": self.sink}

    def cpu_seconds(self):
        """Of all its threads so far, also of those that have ended."""
        return time.clock_gettime((~self.process.pid << 3) | 2)

    def seconds_to_first_sound(self, url):
        """From the command to the first sample; silent again afterwards."""
        self.ear.wait_for_silence()
        begin = self.ear.heard()
        asked = time.monotonic()
        self.play(url)
        sounded = self.ear.first_sound(begin, 20)
        self.stop()
        return sounded - asked


class Ours(Player):
    """song_player, in which everything but the window is there."""

    def __init__(self, lab):
        super().__init__(lab, "ours")
        self.process = lab.start_with([str(BUILD / "bench/song_player")], self.environment, stdin=subprocess.PIPE)

    def play(self, url):
        self._tell(f"play {url}")

    def stop(self):
        self._tell("stop")

    def _tell(self, line):
        self.process.stdin.write(line.encode() + b"\n")
        self.process.stdin.flush()


class Program(Player):
    """zib with its window, as a person without aids sees it, and with its companion service, a process apart."""

    ARTIST = "Broadband"
    FIRST_ROW = ("600", "125")  # of the songs, in the window as it first opens
    NOW_PLAYING = ("88", "113")

    def __init__(self, lab, kilobits, seconds):
        super().__init__(lab, "zib")
        self._lab = lab
        music = lab.home / "Music"
        music.mkdir()
        lab.make_song("song.mp3", kilobits, seconds, "-metadata", f"artist={self.ARTIST}", "-metadata",
                      "title=Song of noise", "-metadata", "album=Noises").rename(music / "song.mp3")
        environment = dict(self.environment)
        del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
        self.process = lab.start_with([str(BUILD / "bin/zib")], environment, stdin=subprocess.DEVNULL,
                                      stderr=subprocess.DEVNULL)

    def search_and_play(self):
        """Until it is heard; the service may still be reading the folder at first."""
        window = self._xdotool("search", "--sync", "--onlyvisible", "--name", "^Zib$").split()[0]
        self._xdotool("windowfocus", "--sync", window)
        begin = self.ear.heard()
        wait_until(lambda: self._try(begin, window), 40, "a song in the program")

    def show_page(self):
        """The page about the artist that plays, until it stands."""
        window = self._xdotool("search", "--onlyvisible", "--name", "^Zib$").split()[0]
        self._xdotool("mousemove", "--window", window, *self.NOW_PLAYING, "click", "1")
        wait_until(self._engine_processes, 20, "the page's engine")
        time.sleep(5)

    def cpu_seconds(self):
        """With the processes that draw the page."""
        ticks = 0
        for process in self._engine_processes():
            fields = (process / "stat").read_text().rsplit(")", 1)[1].split()
            ticks += int(fields[11]) + int(fields[12])
        return super().cpu_seconds() + ticks / os.sysconf("SC_CLK_TCK")

    def _engine_processes(self):
        """Those of this program: its children, and theirs."""
        family, found, before = {str(self.process.pid)}, set(), -1
        while len(family) > before:
            before = len(family)
            for process in pathlib.Path("/proc").glob("[0-9]*"):
                with contextlib.suppress(OSError):
                    parent = (process / "stat").read_text().rsplit(")", 1)[1].split()[1]
                    if parent in family and b"QtWebEngineProcess" in (process / "cmdline").read_bytes():
                        family.add(process.name)
                        found.add(process)
        return found

    def _try(self, begin, window):
        self._xdotool("key", "ctrl+f", "ctrl+a")
        self._xdotool("type", self.ARTIST)
        self._xdotool("key", "Return")
        time.sleep(1)
        self._xdotool("mousemove", "--window", window, *self.FIRST_ROW, "click", "--repeat", "2", "--delay", "60", "1")
        time.sleep(1)
        return self.ear.samples(begin).any()

    def _xdotool(self, *arguments):
        return self._lab.run(["xdotool", *arguments]).decode()


class Mpv(Player):
    """The yardstick, warm and waiting for orders; without its scripts and its terminal, which cost it time."""

    def __init__(self, lab):
        super().__init__(lab, "mpv")
        path = lab.root / "mpv"
        self.process = lab.start_with(
            ["mpv", "--no-config", "--idle=yes", "--no-video", "--no-terminal", "--load-scripts=no", "--ao=pulse",
             f"--input-ipc-server={path}"], self.environment, stdin=subprocess.DEVNULL)
        self._socket = socket.socket(socket.AF_UNIX)
        wait_until(path.exists, 20, "mpv")
        self._socket.connect(str(path))
        threading.Thread(target=self._forget_answers, daemon=True).start()

    def play(self, url):
        self._tell("loadfile", url)

    def stop(self):
        self._tell("stop")

    def _tell(self, *command):
        self._socket.sendall(json.dumps({"command": command}).encode() + b"\n")

    def _forget_answers(self):
        with contextlib.suppress(OSError):  # it is ended without a word
            while self._socket.recv(65536):
                pass


class SoundLab(Environment):
    """Ends all that it started when it is left."""

    def __init__(self):
        super().__init__()
        self.songs = self.root / "songs"
        self.songs.mkdir()
        server = self.start_with([sys.executable, str(TOP / "bench/song_server.py"), str(self.songs)], self.env,
                                 stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self._address = f"http://127.0.0.1:{first_line(server, 20)}"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def start_with(self, command, environment, **options):
        process = subprocess.Popen(command, env=environment, **options)
        self.processes.append(process)
        return process

    def url(self, way, song):
        return f"{self._address}/{way}/{song}"

    def make_song(self, name, kilobits, seconds, *tags):
        """Noise, which is never silent, from its first sample on."""
        path = self.songs / name
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"anoisesrc=d={seconds}:r={RATE}:a=0.3:seed=7",
                        "-ac", "2", "-b:a", f"{kilobits}k", *tags, str(path)], check=True,
                       stdin=subprocess.DEVNULL)
        return path


def wait_until_often(condition, seconds, what):
    deadline = time.monotonic() + seconds
    while (value := condition()) is None:
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.005)
    return value
