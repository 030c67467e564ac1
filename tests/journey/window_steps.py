# SPDX-License-Identifier: GPL-3.0-or-later
"""The journey through the windows: preferences act at once, many songs are edited in one go, the shown songs are
filtered, playlists leave and come back as files."""

import json

from environment import wait_until
from library_steps import tag_of

GENRE = "Pastoral"
EXPORTED, IMPORTED = "Fields to go.xspf", "Fields that came.m3u8"
LOST = "Hay that nobody has"
SERVICES = ("Song search", "Music information", "Lyrics", "Releases", "Shared playlists")


class WindowSteps:
    """Steps over `self.user`, `self.environment`, `self.library()`, `self.own_songs()`, `self.own_file()` and `self.names()`.
    The program runs with its service, and has an artist of two imported songs with a playlist of that artist's name."""

    STEPS = ("preferences", "edit_many", "filter", "playlist_files")

    def preferences(self):
        light = self.brightness()
        self.user.press("ctrl+comma")
        self.user.click(self.user.wait_for("Dark"))
        wait_until(lambda: self.brightness() < light / 2, 5, "the dark window")
        wait_until(lambda: self.setting("Appearance") == "dark", 5, "the choice in the settings")
        self.user.choose("Sections", "Services")
        for service in SERVICES:
            self.user.wait_for(f"{service}: Answers", seconds=10)
        self.environment.screenshot(self.output / "preferences-services.png")
        self.user.choose("Sections", "General")
        self.user.click(self.user.wait_for("As the desktop"))
        wait_until(lambda: self.brightness() == light, 5, "the window as it was")
        self.user.press("Escape")
        return f"{len(SERVICES)} services answer, dark and back"

    def edit_many(self):
        self.show_artist("Amber Field")
        self.user.click(self.user.cell("Songs", 0))
        self.user.press("ctrl+a", "ctrl+i")
        self.user.click(self.user.wait_for("Edit"))  # many at once are asked about
        self.user.click(self.user.wait_for("Genre"))
        self.user.type(GENRE)
        self.user.press("ctrl+Return")
        edited = wait_until(lambda: [song for song in self.own_songs() if song.get("Genre") == GENRE], 5,
                            "the genre in the library file")
        assert sorted(song["Name"] for song in edited) == sorted(self.names()), edited
        for song in edited:
            genre = tag_of(self.own_file("Amber Field", "Harvest", song["Name"]), "genre")
            assert genre == GENRE, f"{song['Name']}: {genre}"
        return f"{GENRE} in {len(edited)} files"

    def filter(self):
        self.user.choose("Sources", "Music")
        self.user.click(self.user.cell("Artists", 0))
        every = wait_until(lambda: len(self.names()) > 2 and self.names(), 5, "all songs")
        self.user.press("ctrl+shift+f")
        self.user.type("AMBER bar")
        wait_until(lambda: self.names() == ["Barley bread"], 5, "the one song")
        self.environment.screenshot(self.output / "filtered.png")
        self.user.press("Escape")
        wait_until(lambda: self.names() == every, 5, "all songs again")
        return f"1 of {len(every)} songs"

    def playlist_files(self):
        self.user.choose("Sources", "Amber Field")
        songs = wait_until(lambda: len(self.names()) == 2 and self.names(), 5, "the playlist's songs")
        self.user.click(self.user.wait_for("Playlist actions"))
        self.user.press("Up", "Return")  # the last entry, as nothing plays that could be shown
        self.user.wait_for("Export playlist")
        written = self.environment.home / "Music" / EXPORTED
        self.user.press("ctrl+a")
        self.user.type(str(written))
        self.user.press("Return")
        wait_until(written.exists, 5, "the playlist file")
        read = self.environment.home / IMPORTED
        files = [self.own_file("Amber Field", "Harvest", name) for name in songs]
        read.write_text("\n".join(["#EXTM3U", *map(str, files), f"#EXTINF:61,Nobody - {LOST}", f"{LOST}.mp3"]) + "\n")
        self.environment.run([str(self.bin / "zib"), str(written), str(read)])
        report = self.user.wait_for("OK")
        self.environment.screenshot(self.output / "playlist-report.png")
        self.user.click(report)
        imported = wait_until(lambda: len(found := self.playlists_of("Amber Field", read.stem)) == 3 and found[1:], 5,
                              "both among the playlists")
        for playlist in imported:
            names = [self.library()["Library"][identity]["Name"] for identity in playlist["Tracks"]]
            assert names == songs, f"{playlist['Name']}: {names}"
        return f"{', '.join(songs)}, and one that was not found"

    # What the steps are made of.

    def show_artist(self, artist):
        self.user.choose("Sources", "Music")
        self.user.choose("Artists", artist)
        songs = sum(song["Artist"] == artist for song in self.library()["Library"].values())
        wait_until(lambda: len(self.names()) == songs, 5, f"the songs of {artist}")

    def playlists_of(self, *names):
        return [one for one in self.library()["Playlists"] if one["Name"] in names]

    def setting(self, key):
        return json.loads((self.environment.home / ".config/zib/settings.json").read_text()).get(key)

    def brightness(self):
        """Of the source list, 0 to 255."""
        pixels = sorted(self.environment.pixels(self.user.box("Sources")))
        return pixels[len(pixels) // 2]
