# SPDX-License-Identifier: GPL-3.0-or-later
"""The journey's steps that find music, listen from song to song, and go without the web."""

import math
import struct
import wave

from environment import wait_until
from library_file import write_library
from network_manager import NetworkManager
from recorder import AUDIBLE

NOWHERE = "offline.invalid"  # a name that nobody can have


class DiscoverySteps:
    """Steps over `self.user`, `self.environment`, `self.recorder`, `self.library()` and `self.launch()`."""

    STEPS = ("tag_search", "similar_search", "automatic_lists", "next_and_back", "offline")

    def tag_search(self):
        self.end()
        self.launch()
        self.user.click(self.user.wait_for("Tags"))
        artists = self.artists_found("techno, synthwave", 5)
        assert {"Kestrel Motorway", "Umspannwerk Süd"} <= artists, artists
        assert "Ilse Brandvold" not in artists, artists
        return f"{len(artists)} artists"

    def similar_search(self):
        self.user.click(self.user.wait_for("Similar"))
        artists = self.artists_found("Ilse Brandvold", 2)
        assert {"Uo", "Tadeusz Wrzosowy"} <= artists, artists
        assert "Ilse Brandvold" not in artists, artists
        return f"{len(artists)} artists"

    def automatic_lists(self):
        songs = []
        for name in ("What's Hot?", "Recommended"):
            self.user.choose("Sources", name)
            self.user.click(self.user.wait_for("OK", seconds=10))  # the notice of what the list is
            wait_until(lambda: self.user.rows("Songs"), 10, f"songs in {name}")
            self.user.click(self.user.cell("Artists", 0))  # whichever artist was chosen before
            self.environment.screenshot(self.output / f"{name.split()[0].lower()}.png")
            songs.append(self.user.rows("Songs"))
        assert songs[0] > songs[1], songs  # all there are, and what resembles the loved ones
        return "{} hot songs, {} recommended".format(*songs)

    def next_and_back(self):
        self.end()
        tracks = [self.tone(1), self.tone(2), self.tone(3)]
        tracks[1]["Broken Link"] = True
        self.keep_search("Three tones", tracks)
        self.launch()
        self.open_search("Three tones")
        self.user.double_click_row("Songs", 0)
        self.hear("Tone 1")
        self.user.click(self.user.wait_for("Next"))
        self.hear("Tone 3")
        # Late in a song Back begins it again, and from there it goes to the one before.
        wait_until(lambda: self.user.click(self.user.wait_for("Back")) or "Tone 1" in self.now_playing(), 20, "Tone 1")
        self.hear("Tone 1")
        return "over the broken link and back"

    def offline(self):
        self.end()
        network = NetworkManager(self.environment)
        local = self.tone(1)
        self.keep_search("Web and disk", [dict(local, ID="f" * 16, Name="Web song", Location=f"http://{NOWHERE}/a.mp3"), local])
        self.launch("--services", f"http://{NOWHERE}")
        self.open_search("Web and disk")
        notice = "You are offline. Songs on this computer still play; those on the web are shown in grey."
        self.user.wait_for(notice)
        self.user.double_click_row("Songs", 0)
        self.user.wait_for("You are not connected to the Internet")
        self.environment.screenshot(self.output / "offline-alert.png")
        self.user.click(self.user.wait_for("OK"))
        self.user.double_click_row("Songs", 1)
        self.hear("Tone 1")
        network.connect()
        wait_until(lambda: not self.user.find(notice), 15, "the notice to go")
        return "refused the web song, played the other, came back online"

    # What the steps are made of.

    def end(self):
        if self.zib.poll() is None:
            self.user.active_window()  # one that was only just started has to come up to hear a key
            self.user.press("ctrl+q")
        self.zib.wait(15)

    def artists_found(self, text, kind):
        """Types into the search field; the artists of the newest search once it is that one."""
        self.user.click(self.user.wait_for("Search"))
        self.user.press("ctrl+a")
        self.user.type(text)
        self.user.press("Return")

        def found():
            newest = self.library()["Recent Searches"][0]
            return newest if newest["Name"] == text else None

        search = wait_until(found, 20, f"the search for {text}")
        assert search["Kind"] == kind, search["Kind"]
        rows = wait_until(lambda: self.user.rows("Songs"), 10, "songs in the table")
        assert rows == len(search["Tracks"]), f"{rows} rows of {len(search['Tracks'])} songs"
        return {track["Artist"] for track in search["Tracks"]}

    def keep_search(self, name, tracks):
        searches = [{"Name": name, "ID": 1, "Kind": 1, "Tracks": tracks}]
        write_library(self.environment.home / "Music" / "Zib" / "Zib Music Library.zib", {}, searches=searches)

    def open_search(self, name):
        self.user.choose("Sources", name)
        wait_until(lambda: self.user.rows("Songs"), 10, "songs in the table")

    def hear(self, name):
        wait_until(lambda: name in self.now_playing(), 15, name)
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")

    def tone(self, number):
        """The record of a minute of a tone in a file."""
        path = self.environment.home / f"tone-{number}.wav"
        samples = [int(9000 * math.sin(i * number * 0.06)) for i in range(8000)] * 60
        with wave.open(str(path), "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(8000)
            file.writeframes(struct.pack(f"<{len(samples)}h", *samples))
        return {"ID": str(number) * 16, "Name": f"Tone {number}", "Artist": "Nobody", "Album": "Tones",
                "Location": path.as_uri(), "Duration": 60}
