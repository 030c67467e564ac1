# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as its first page shows it: a small library of the songs that come with it, in the light and in the dark."""

import json
import shutil
import time

from environment import wait_until
from recorder import AUDIBLE

PLAYLISTS = {"jazz": "Late breakfast", "synthwave": "Night drive", "piano": "Rain on the roof"}  # by the tag of their songs
LAST_SEARCHES = ("lo-fi", "folk")
ARTIST, DARK_ARTIST = "Basement Herbarium", "Élan Vérité"
STILL = 2  # seconds in which a page's bars and pictures come to rest


class PictureSteps:
    """Steps over `self.user`, `self.environment`, `self.recorder`, `self.tracks_of()`, `self.last_source()`, `self.end()`,
    `self.artists_found()` and `self.launch()`; the program runs. Its library is another one afterwards."""

    STEPS = ("pictures",)

    def pictures(self):
        self.end()
        shutil.rmtree(self.environment.home / "Music" / "Zib")
        settings = self.environment.home / ".config/zib/settings.json"
        settings.write_text(json.dumps({"WelcomeShown": True}))
        self.launch()
        self.user.click(self.user.wait_for("Tags"))
        for tag, name in PLAYLISTS.items():
            self.artists_found(tag, 5)
            self.keep_as(name)
        for tag in LAST_SEARCHES:
            self.artists_found(tag, 5)

        self.user.choose("Sources", "Music")
        self.play_song_of(ARTIST)
        for row in (1, 4):
            self.love_row(row)
        self.take("songs")
        self.user.choose("Sources", "Now Playing")
        self.user.find_on_page(ARTIST)
        self.take("window")
        self.user.choose("Sources", PLAYLISTS["jazz"])
        self.take("playlist")

        self.user.press("ctrl+comma")
        self.user.click(self.user.wait_for("Dark"))
        self.user.press("Escape")
        self.user.choose("Sources", "What's Hot?")
        self.user.click(self.user.wait_for("OK", seconds=10))  # the notice of what the list is
        wait_until(lambda: self.user.rows("Songs"), 10, "hot songs")
        self.play_song_of(DARK_ARTIST)
        self.take("songs-dark")
        self.user.choose("Sources", "Now Playing")
        self.user.find_on_page(DARK_ARTIST)
        self.take("window-dark")
        return ", ".join(sorted(picture.name for picture in (self.output / "pictures").iterdir()))

    # What the step is made of.

    def keep_as(self, name):
        """Makes a playlist of the shown songs."""
        before = len(self.library()["Playlists"])
        self.user.click(self.user.cell("Songs", 0))
        self.user.press("ctrl+a", "ctrl+shift+n")
        wait_until(lambda: len(self.library()["Playlists"]) > before, 5, "another playlist")
        self.user.click(self.last_source())
        self.user.press("F2")
        self.user.type(name)
        self.user.press("Return")
        wait_until(lambda: self.tracks_of(name), 5, f"the playlist {name}")

    def love_row(self, row):
        self.user.click(self.user.cell("Songs", row))
        self.user.press("ctrl+l")
        self.user.click(self.user.wait_for("OK", seconds=5))  # the notice of a loved song

    def play_song_of(self, artist):
        """To about a third of it."""
        self.user.double_click_row("Songs", self.user.texts("Songs", "Artist").index(artist))
        wait_until(lambda: artist in self.now_playing(), 10, f"a song of {artist}")
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")
        self.user.click(self.user.wait_for("Song progress"), across=0.3)

    def take(self, name):
        folder = self.output / "pictures"
        folder.mkdir(exist_ok=True)
        time.sleep(STILL)
        self.environment.window_picture(folder / f"{name}.png")
