# SPDX-License-Identifier: GPL-3.0-or-later
"""The journey through the source list: playlists are made, named, filled and removed, searches become playlists."""

from environment import wait_until

NAME = "Motorway nights"
TAGS = ("ambient", "folk", "jazz", "lo-fi", "piano", "synthwave")  # those that an empty place offers
SEARCHES_KEPT = 5


class SourceSteps:
    """Steps over `self.user`, `self.artist`, `self.environment` and `self.library()`. The program runs, with a search for the
    artist among its recent ones and its song service at hand."""

    STEPS = ("playlist_from_selection", "rename_playlist", "search_to_playlist", "songs_to_playlist", "sixth_search",
             "remove_playlist")

    def playlist_from_selection(self):
        self.user.choose("Sources", self.artist)
        songs = wait_until(lambda: self.user.rows("Songs"), 10, "the songs of the search")
        self.user.click(self.user.cell("Songs", 0))
        self.user.press("ctrl+a")
        self.user.click(self.user.wait_for("Playlist actions"))
        self.user.press("Down", "Return")  # the menu's first entry
        wait_until(lambda: len(self.tracks_of(self.artist)) == songs, 5, "the playlist in the library file")
        assert self.user.texts("Sources").count(self.artist) == 2, self.user.texts("Sources")
        assert self.user.rows("Songs") == songs
        return f"{self.artist}, {songs} songs"

    def rename_playlist(self):
        self.user.click(self.last_source())
        self.user.press("F2", "BackSpace", "Return")  # no name is none: the field stays open
        self.user.type(NAME)
        self.user.press("Return")
        wait_until(lambda: NAME in self.user.texts("Sources"), 5, "the new name in the source list")
        wait_until(lambda: self.tracks_of(NAME), 5, "the new name in the library file")
        return NAME

    def search_to_playlist(self):
        searches = len(self.library()["Recent Searches"])
        self.user.drag(self.source(self.artist), self.source("Playlists"))
        wait_until(lambda: self.tracks_of(self.artist), 5, "the playlist in the library file")
        assert len(self.library()["Recent Searches"]) == searches - 1
        sources = self.user.texts("Sources")
        assert sources.index(self.artist) == sources.index("Playlists") + 1, sources
        wait_until(lambda: self.user.rows("Songs") == len(self.tracks_of(self.artist)), 5, "the songs of the playlist")
        return f"{self.artist}, {len(self.tracks_of(self.artist))} songs"

    def songs_to_playlist(self):
        before = self.tracks_of(NAME)
        self.user.choose("Sources", "Music")
        wait_until(lambda: self.user.rows("Songs"), 5, "songs")
        self.user.drag(self.user.cell("Songs", 0), self.source(NAME))
        after = wait_until(lambda: self.tracks_of(NAME) != before and self.tracks_of(NAME), 5, "the song in the playlist")
        assert after[:-1] == before, after
        return self.library()["Library"][after[-1]]["Name"]

    def sixth_search(self):
        self.user.click(self.user.wait_for("Tags"))
        for tag in TAGS:
            self.user.click(self.user.wait_for("Search"))
            self.user.press("ctrl+a")
            self.user.type(tag)
            self.user.press("Return")
            wait_until(lambda: self.searches()[:1] == [tag], 20, f"the songs tagged {tag}")
        newest = list(reversed(TAGS))[:SEARCHES_KEPT]
        assert self.searches() == newest, self.searches()
        sources = self.user.texts("Sources")
        first = sources.index("Recent Searches") + 1
        assert sources[first:first + len(newest) + 1] == newest + ["Library"], sources
        return f"{TAGS[0]} is gone"

    def remove_playlist(self):
        self.user.choose("Sources", NAME)
        wait_until(lambda: self.user.rows("Songs"), 5, "the songs of the playlist")
        self.user.press("Delete")
        self.user.click(self.user.wait_for("Remove", seconds=5))
        wait_until(lambda: NAME not in [one["Name"] for one in self.library()["Playlists"]], 5,
                   "the playlist to leave the library file")
        assert NAME not in self.user.texts("Sources")
        return NAME

    # What the steps are made of.

    def source(self, text):
        """The row of the source list that says so, the first of them."""
        texts = self.user.texts("Sources")
        assert text in texts, f"no {text} in {texts}"
        return self.user.wait_for("Sources").get_child_at_index(texts.index(text))

    def playlist(self, name):
        """The row of the playlist of that name, which stand last."""
        texts = self.user.texts("Sources")
        return self.user.wait_for("Sources").get_child_at_index(len(texts) - 1 - texts[::-1].index(name))

    def last_source(self):
        sources = self.user.wait_for("Sources")
        return sources.get_child_at_index(sources.get_child_count() - 1)

    def tracks_of(self, playlist):
        return next((one["Tracks"] for one in self.library()["Playlists"] if one["Name"] == playlist), [])

    def searches(self):
        return [one["Name"] for one in self.library()["Recent Searches"]]
