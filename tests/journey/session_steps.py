# SPDX-License-Identifier: GPL-3.0-or-later
"""The program is killed, and its window comes back as it was left."""

import json
import time

from environment import wait_until

LOST_AT_MOST = 2  # seconds of what the user did before a crash


class SessionSteps:
    """Steps over `self.user`, `self.environment`, `self.end()` and `self.launch()`; the program runs, with songs in
    its library."""

    STEPS = ("session_restore",)

    def session_restore(self):
        self.user.choose("Sources", "Music")
        artist = next(name for name in self.user.texts("Artists")[1:] if name)
        self.user.choose("Artists", artist)
        album = self.user.texts("Albums")[1]
        self.user.choose("Albums", album)
        self.user.click(self.user.cell("Songs", 0))
        song = self.user.texts("Songs")[0]
        edge = self.user.box("Sources")
        self.user.pull(edge.x + edge.width, edge.y + 200, 60)
        width = wait_until(lambda: self.user.box("Sources").width > edge.width + 30 and self.user.box("Sources").width, 5,
                           "wider sources")
        time.sleep(LOST_AT_MOST)
        self.zib.kill()
        self.zib.wait(10)
        kept = json.loads((self.environment.home / ".config" / "zib" / "settings.json").read_text())
        assert kept["SelectedArtist"] == artist and kept["SelectedAlbum"] == album, kept
        self.launch()
        shown = wait_until(lambda: self.user.find("Songs") is not None and self.user.selected("Songs"), 15, "the selected song")
        assert shown == song, shown
        for table, name in (("Artists", artist), ("Albums", album)):
            assert self.user.selected(table) == name, self.user.selected(table)
        assert self.user.box("Sources").width == width, f"{self.user.box('Sources').width} instead of {width} pixels"
        return f"{song} of {album} by {artist}, sources of {width} pixels"
