# SPDX-License-Identifier: GPL-3.0-or-later
"""Hears what the program plays: records the null sink's monitor from start to end."""

import subprocess
import threading
import time
import wave

import numpy

from environment import SINK

AUDIBLE = 0.003  # root mean square of music, even of its quiet passages, is far above
SILENT = 0.0001
RATE = 44100
BYTES_PER_SECOND = RATE * 2 * 2


class Recorder:
    def __init__(self, environment):
        self._data = bytearray()
        self._lock = threading.Lock()
        self._process = environment.start(
            ["parec", "-d", f"{SINK}.monitor", "--format=s16le", f"--rate={RATE}", "--channels=2",
             "--latency-msec=20"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        while chunk := self._process.stdout.read1(65536):
            with self._lock:
                self._data += chunk

    def listen(self, seconds):
        """The loudness (root mean square, full scale 1.0) of the next seconds."""
        with self._lock:
            begin = len(self._data)
        wanted = int(seconds * RATE) * 4
        deadline = time.monotonic() + seconds + 10
        while len(self._data) < begin + wanted:
            if time.monotonic() > deadline:
                raise AssertionError("the sound server stands still")
            time.sleep(0.02)
        with self._lock:
            piece = bytes(self._data[begin:begin + wanted])
        samples = numpy.frombuffer(piece, dtype="<i2").astype(float) / 32768
        return float(numpy.sqrt(numpy.mean(samples ** 2)))

    def save(self, path):
        with self._lock:
            data = bytes(self._data)
        with wave.open(str(path), "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(data[:len(data) // 4 * 4])
