#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kills the service while several clients publish, starts it again, and looks for all that it has acknowledged."""

import base64
import http.client
import pathlib
import sys
import tempfile
import threading
import time

from playlist_client import Service, archive, form

USER = "Ann-0123456789abcdef0123456789abcdef"
PUBLISHERS, ROUNDS = 4, 3


def tracks(name):
    return [{"Name": name, "Artist": "Band", "Duration": 60, "Location": "http://127.0.0.1:1/a.mp3"}]


class Publisher(threading.Thread):
    """Publishes until the service is gone."""

    def __init__(self, service, label):
        super().__init__()
        self._service, self._label = service, label
        self.acknowledged, self.faults = {}, []
        self.killed = threading.Event()

    def run(self):
        number = 0
        while True:
            name = f"{self._label} {number}"
            number += 1
            try:
                status, text = self._service.request("POST", "/playlists/addplaylist.php", form(USER, name, tracks(name)))
            except (OSError, http.client.HTTPException) as error:
                if not self.killed.wait(5):  # the publisher may see it before the killer says so
                    self.faults.append(f"{name}: {error!r} before the kill")
                return
            words = text.decode().split(" ")
            if status != 200 or words[0] != "OK":
                self.faults.append(f"{name}: {status} {text.decode()}")
                return
            self.acknowledged[int(words[1])] = name


def main(program):
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        everything = {}
        for turn in range(ROUNDS):
            service = Service(program, folder, "--rate", "0")
            publishers = [Publisher(service, f"{turn} {i}") for i in range(PUBLISHERS)]
            for publisher in publishers:
                publisher.start()
            while any(len(p.acknowledged) < 10 and not p.faults for p in publishers):
                time.sleep(0.01)
            service.process.kill()
            for publisher in publishers:
                publisher.killed.set()
            service.process.wait()
            for publisher in publishers:
                publisher.join()
                assert not publisher.faults, publisher.faults
                assert not everything.keys() & publisher.acknowledged.keys(), "an id was given twice"
                everything |= publisher.acknowledged
        service = Service(program, folder, "--rate", "0")
        for identity, name in everything.items():
            status, text = service.request("GET", f"/playlists/getplaylist.php?id={identity}")
            assert status == 200, f"{name} is lost: {status}"
            assert base64.b64decode(text) == archive({"Name": name, "Tracks": tracks(name)}), f"{name} has changed"
        assert service.end() == 0
        log = (folder / "log").read_text()
        assert USER.rsplit("-")[1] not in log
        print(f"{len(everything)} publications outlived {ROUNDS} kills")


if __name__ == "__main__":
    main(sys.argv[1])
