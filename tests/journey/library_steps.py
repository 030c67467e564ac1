# SPDX-License-Identifier: GPL-3.0-or-later
"""The journey's second half: songs of one's own come in, are found, sorted, edited, put in order and removed."""

import pathlib
import subprocess

from environment import wait_until

OWN_SONGS = (("Amber Field", "Harvest", "Barley"), ("Amber Field", "Harvest", "Acorn"),
             ("The Cobalt Sky", "Drift", "Cirrus"))


class LibrarySteps:
    """Steps over `self.user`, `self.environment`, `self.library()` and `self.launch()`."""

    STEPS = ("import_", "browse", "sort", "edit_title", "reorder", "remove_song", "restart_library")

    def import_(self):
        folder = self.environment.home / "My songs"
        folder.mkdir()
        for number, song in enumerate(OWN_SONGS):
            make_song(folder / f"{number}.mp3", *song)
        self.environment.run([str(self.bin / "zib"), str(folder)])  # the running program takes them over
        wait_until(lambda: len(self.own_songs()) == len(OWN_SONGS), 20, "the songs in the library file")
        for artist, album, name in OWN_SONGS:
            assert self.own_file(artist, album, name).read_bytes(), f"no copy of {name}"
        self.user.choose("Sources", "Imported")
        wait_until(lambda: sorted(self.names()) == sorted(name for _, _, name in OWN_SONGS), 5, "the imported songs")
        return f"{len(OWN_SONGS)} songs"

    def browse(self):
        self.user.choose("Sources", "Music")
        before = wait_until(lambda: len(self.names()) > len(OWN_SONGS) and len(self.names()), 5, "all songs")
        artists = self.user.texts("Artists")
        assert artists.index("Amber Field") < artists.index("The Cobalt Sky") < artists.index("Kestrel Motorway"), artists
        self.user.choose("Artists", "Amber Field")
        wait_until(lambda: sorted(self.names()) == ["Acorn", "Barley"], 5, "the artist's songs")
        self.user.press("Right", "Down", "Right")  # to the albums, the first one, and its songs
        wait_until(lambda: sorted(self.names()) == ["Acorn", "Barley"], 5, "the album's songs")
        self.user.choose("Artists", artists[0])
        wait_until(lambda: len(self.names()) == before, 5, "all songs again")
        return f"{artists[0]}, {before} songs"

    def sort(self):
        for reverse, across in ((False, 0.5), (True, 0.3)):  # two clicks at one place may be a double click
            self.user.click(self.user.heading("Songs", "Name"), across=across)
            wait_until(lambda: self.names() == sorted(self.names(), key=str.lower, reverse=reverse), 5,
                       "the songs in the order of their names")
        return ", ".join(self.names())

    def edit_title(self):
        self.user.choose("Songs", "Barley")
        self.user.press("F2")
        self.user.type("Barley bread")
        self.user.press("Return")
        new = self.own_file("Amber Field", "Harvest", "Barley bread")
        wait_until(new.exists, 5, "the file under its new name")
        assert not self.own_file("Amber Field", "Harvest", "Barley").exists(), "the old file is still there"
        wait_until(lambda: any(song["Name"] == "Barley bread" for song in self.own_songs()), 5, "the new name")
        assert tag_of(new, "title") == "Barley bread", tag_of(new, "title")
        return new.name

    def reorder(self):
        self.user.choose("Artists", "Amber Field")
        wait_until(lambda: len(self.names()) == 2, 5, "the artist's songs")
        self.user.choose("Songs", "Acorn")
        self.user.press("ctrl+a", "Menu", "Down", "Down", "Down", "Right", "Return")  # add to a new playlist
        wait_until(lambda: "Amber Field" in self.user.texts("Sources"), 5, "the playlist in the source list")
        self.user.choose("Sources", "Amber Field")
        wait_until(lambda: len(self.names()) == 2, 5, "the playlist's songs")
        before = self.names()
        self.user.drag_row("Songs", 0, below=1)
        wait_until(lambda: self.names() == before[::-1], 5, "the songs in their new order")
        wait_until(lambda: self.playlist_names() == before[::-1], 5, "the new order in the library file")
        return ", ".join(self.playlist_names())

    def remove_song(self):
        self.user.choose("Sources", "Music")
        self.user.choose("Artists", "The Cobalt Sky")
        wait_until(lambda: self.names() == ["Cirrus"], 5, "the artist's song")
        self.user.choose("Songs", "Cirrus")
        self.user.press("Delete")
        self.user.click(self.user.wait_for("Remove", seconds=5))
        wait_until(lambda: len(self.own_songs()) == len(OWN_SONGS) - 1, 5, "the song to leave the library file")
        trashed = self.environment.home / ".local/share/Trash/files/Cirrus.mp3"
        wait_until(trashed.exists, 5, "the file in the trash")
        assert not self.own_file("The Cobalt Sky", "Drift", "Cirrus").exists(), "the file is still there"
        return str(trashed.relative_to(self.environment.home))

    def restart_library(self):
        kept = self.library()
        order = self.playlist_names()
        self.user.press("ctrl+q")
        self.zib.wait(10)
        self.launch()
        self.user.wait_for("Sources")
        assert self.library() == kept, "the library file has changed"
        self.user.choose("Sources", "Amber Field")
        wait_until(lambda: self.names() == order, 5, "the playlist's order")
        self.user.choose("Sources", "Music")
        self.user.click(self.user.cell("Artists", 0))  # in place of the artist that was chosen when it ended
        wait_until(lambda: len(self.names()) == len(kept["Library"]), 5, "all songs")
        assert self.names() == sorted(self.names(), key=str.lower, reverse=True), "sorted otherwise than it was left"
        return f"{len(self.names())} songs, sorted as they were left"

    # What the steps are made of.

    def names(self):
        return self.user.texts("Songs", "Name")

    def own_songs(self):
        return [song for song in self.library()["Library"].values() if song["Location"].startswith("file://")]

    def own_file(self, artist, album, name):
        return self.environment.home / "Music/Zib/Zib Music" / artist / album / f"{name}.mp3"

    def playlist_names(self):
        library = self.library()
        return [library["Library"][identity]["Name"] for identity in library["Playlists"][0]["Tracks"]]


def make_song(path, artist, album, name):
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=frequency=330:duration=2", "-metadata",
                    f"artist={artist}", "-metadata", f"album={album}", "-metadata", f"title={name}", str(path)],
                   check=True, stdin=subprocess.DEVNULL)


def tag_of(path: pathlib.Path, name):
    return subprocess.run(["ffprobe", "-v", "error", "-show_entries", f"format_tags={name}", "-of", "csv=p=0", str(path)],
                          check=True, stdin=subprocess.DEVNULL, capture_output=True, text=True).stdout.strip()
