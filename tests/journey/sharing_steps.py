# SPDX-License-Identifier: GPL-3.0-or-later
"""The journey of a playlist to others: it is published at the bundled service, and its page stands behind the link."""

import urllib.request

from environment import wait_until

TITLE = "Songs for the road"


class SharingSteps:
    """Steps over `self.user`, `self.artist`, `self.library()`, `self.playlist()` and `self.tracks_of()`. The program runs with
    its song service and has a playlist of the artist's songs, which are all of that service."""

    STEPS = ("share_playlist",)

    def share_playlist(self):
        self.user.click(self.playlist(self.artist))
        wait_until(lambda: self.user.rows("Songs") == len(self.tracks_of(self.artist)), 10, "the songs of the playlist")
        self.user.click(self.user.wait_for("Playlist actions"))
        self.user.press("Down", "Down", "Down", "Return")  # no song is selected: from "Rename" to "Share…"
        self.user.wait_for("Your name", seconds=5)  # the title has the keyboard and is selected
        self.user.type(TITLE)
        self.user.press("Tab", "Tab")  # over the description to the tags
        self.user.type("road,night,one,two,three,four,")
        self.user.click(self.user.wait_for("OK"))
        self.user.click(self.user.wait_for("Close", seconds=15))
        shared = wait_until(lambda: next((one for one in self.library()["Playlists"] if "Share ID" in one), None), 5,
                            "the share in the library file")
        assert shared["Shared Name"] == TITLE and shared["Tags"] == "road,night,one,two,three", shared
        song = self.library()["Library"][shared["Tracks"][0]]
        service = "/".join(song["Location"].split("/")[:3])
        with urllib.request.urlopen(f"{service}/playlists/{shared['Share ID']}/", timeout=10) as page:
            assert TITLE in page.read().decode(), "the page does not name the playlist"
        return f"{service}/playlists/{shared['Share ID']}/"
