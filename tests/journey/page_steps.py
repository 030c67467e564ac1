# SPDX-License-Identifier: GPL-3.0-or-later
"""The journey through the pages about the song that plays, and along their links."""

import subprocess

from environment import wait_until

ARTIST = "Basement Herbarium"  # whose biography is longer than its page shows at first
PAGES = {"Album": "Type: ", "Song": "by ", "Images": "Showing 1 - 5 of ", "Videos": "Videos for ", "Blogs": "Blogs for ",
         "News": "News for ", "Reviews": "Reviews for "}


class PageSteps:
    """Steps over `self.user`, `self.environment`, `self.output`, `self.bin`, `self.library()`, `self.end()` and
    `self.launch()`. The program runs with its song service."""

    STEPS = ("start_page", "start_page_search", "artist_page", "read_more", "eight_pages", "show_more", "tag_pill",
             "similar_artist", "combo_search", "open_address")

    def start_page(self):
        self.end()
        self.launch()
        self.user.choose("Sources", "Now Playing")
        self.on_page("Or try a tag:")
        return "offers a field and tags"

    def start_page_search(self):
        self.user.click(self.on_page("Artist", starts=False))
        self.user.type(ARTIST)
        self.user.press("Return")
        newest = self.newest_search(ARTIST)
        assert {track["Artist"] for track in newest["Tracks"]} == {ARTIST}, newest["Tracks"][0]
        return f"{len(newest['Tracks'])} songs by {ARTIST}"

    def artist_page(self):
        wait_until(lambda: self.user.rows("Songs"), 10, "songs in the table")
        self.user.double_click_row("Songs", 0)
        self.user.choose("Sources", "Now Playing")
        self.on_page("Tags:")
        self.on_page(ARTIST)
        return "about the artist that plays"

    def read_more(self):
        self.user.click(self.on_page("Read more..."))
        self.user.click(self.on_page("Read less..."))
        self.on_page("Read more...")
        return "the whole biography and back"

    def eight_pages(self):
        for name, words in PAGES.items():
            self.user.click(self.on_page(name, starts=False))
            self.on_page(words)
            self.environment.screenshot(self.output / f"page-{name.lower()}.png")
        self.user.click(self.on_page("Artist", starts=False))
        self.on_page("Tags:")
        self.environment.screenshot(self.output / "page-artist.png")
        return "each named what it is about"

    def show_more(self):
        self.user.click(self.on_page("Images", starts=False))
        for shown in ("Showing 1 - 5 of ", "Showing 1 - 10 of "):
            self.on_page(shown)
            self.user.click(self.on_page("Show more..."))
        title = self.on_page("Showing 1 - 1").get_name()
        assert title.split()[3] == title.split()[5], title
        return title

    def tag_pill(self):
        self.user.click(self.on_page("Artist", starts=False))
        self.on_page("Tags:")
        pill = self.user.link_after("Tags:")
        tag = pill.get_name()
        self.user.click(pill)
        return f"{tag}: {len(self.newest_search(tag)['Tracks'])} songs"

    def similar_artist(self):
        self.user.choose("Sources", "Now Playing")
        self.user.click(self.on_page("MORE MUSIC"))
        newest = wait_until(lambda: self.library()["Recent Searches"][0]["Name"].startswith(f"{ARTIST}, ") and
                            self.library()["Recent Searches"][0], 20, "the search for similar artists")
        artists = {track["Artist"] for track in newest["Tracks"]}
        assert len(artists) > 1, artists
        return f"songs by {len(artists)} artists"

    def combo_search(self):
        self.user.choose("Sources", "Now Playing")
        self.user.click(self.on_page("combo search"))
        newest = wait_until(lambda: ", " in self.library()["Recent Searches"][0]["Name"] and
                            self.library()["Recent Searches"][0], 20, "the search for all tags")
        assert newest["Tracks"], newest
        return newest["Name"]

    def open_address(self):
        subprocess.run([str(self.bin / "zib"), "zib://search/tag/waltz"], env=self.environment.env, check=True, timeout=20)
        songs = len(self.newest_search("waltz")["Tracks"])
        shared = next(one for one in self.library()["Playlists"] if "Share ID" in one)
        before = len(self.library()["Playlists"])
        subprocess.run([str(self.bin / "zib"), f"zib://open/playlist/{shared['Share ID']}"], env=self.environment.env,
                       check=True, timeout=20)
        opened = wait_until(lambda: self.library()["Playlists"][before:], 15, "the shared playlist")[0]
        assert opened["Name"] == shared["Shared Name"] and len(opened["Tracks"]) == len(shared["Tracks"]), opened
        return f"{songs} songs tagged waltz, and the shared playlist"

    # What the steps are made of.

    def on_page(self, words, starts=True):
        """What shows on the page and begins with these words, or is called so; scrolls for it."""
        return self.user.find_on_page(words, starts)

    def newest_search(self, name):
        def found():
            newest = self.library()["Recent Searches"][:1]
            return newest[0] if newest and newest[0]["Name"] == name else None

        return wait_until(found, 20, f"the search for {name}")
