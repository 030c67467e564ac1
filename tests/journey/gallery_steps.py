# SPDX-License-Identifier: GPL-3.0-or-later
"""The controls by themselves, and the window as those see it who read from the right or need high contrast."""

import subprocess

from environment import wait_until

SCHEMES = ("light", "dark")
RATIOS = (1, 1.5, 2)
PAGE_WIDTH = 760
FEWEST_CONTROLS = 20
HIGH_CONTRAST = """[General]
ColorScheme=HighContrast
[Colors:Window]
BackgroundNormal=0,0,0
ForegroundNormal=255,255,255
ForegroundLink=255,216,0
[Colors:View]
BackgroundNormal=0,0,0
BackgroundAlternate=0,0,0
ForegroundNormal=255,255,255
ForegroundInactive=255,255,255
[Colors:Button]
BackgroundNormal=0,0,0
ForegroundNormal=255,255,255
[Colors:Selection]
BackgroundNormal=255,216,0
ForegroundNormal=0,0,0
"""


class GallerySteps:
    """Steps over `self.user`, `self.environment`, `self.bin`, `self.output`, `self.end()` and `self.launch()`; the program
    runs, with a search of several songs."""

    STEPS = ("gallery", "bar_is_handle", "mirrored", "high_contrast")

    def gallery(self):
        pictures = {(scheme, ratio): self.shoot(scheme, ratio) for scheme in SCHEMES for ratio in RATIOS}
        controls = pictures["light", 1]
        assert len(controls) >= FEWEST_CONTROLS, f"only {len(controls)} controls"
        for (scheme, ratio), found in pictures.items():
            where = f"{scheme} at {ratio}"
            assert found.keys() == controls.keys(), f"{where}: {found.keys() ^ controls.keys()}"
            for name, (width, height, colours) in found.items():
                expected = controls[name][1] * ratio
                assert width == PAGE_WIDTH * ratio, f"{where}: {name} is {width} pixels wide"
                # Letters do not grow quite as pixels do.
                assert abs(height - expected) <= 0.1 * expected, f"{where}: {name} is {height} pixels high, not {expected}"
                assert colours >= 4, f"{where}: {name} has {colours} colours"
        return f"{len(controls)} controls, {len(pictures)} pictures of each"

    def shoot(self, scheme, ratio):
        """The control's pictures: their width, height and number of colours, by name."""
        folder = self.output / "gallery" / f"{scheme}-{ratio}"
        done = subprocess.run([str(self.bin / "zib-gallery"), "--shoot", str(folder), "--scheme", scheme],
                              env=self.environment.env | {"QT_SCALE_FACTOR": str(ratio)}, timeout=60, check=True,
                              capture_output=True, text=True)
        listed = self.environment.run(["identify", "-format", "%t %w %h %k\n", *map(str, sorted(folder.glob("*.png")))], text=True)
        pictures = {name: tuple(map(int, numbers)) for name, *numbers in map(str.split, listed.splitlines())}
        assert done.stdout == f"{len(pictures)} pictures\n", done.stdout
        return pictures

    def bar_is_handle(self):
        before = self.place()
        name = self.user.extents(self.user.wait_for("Now playing"))  # in the bar, and nothing to press
        self.user.pull(name.x + name.width // 2, name.y + name.height // 2, 60)
        moved = wait_until(lambda: self.place() != before and self.place(), 5, "the window to move")
        assert (moved.width, moved.height) == (before.width, before.height), "another size"
        self.user.click(self.user.wait_for("Now playing"), times=2)
        large = wait_until(lambda: self.place().width > moved.width and self.place(), 5, "the window to grow")
        self.user.click(self.user.wait_for("Now playing"), times=2)
        wait_until(lambda: self.place().width == moved.width, 5, "the window to have its size again")
        return f"from {before.x},{before.y} to {moved.x},{moved.y}; {large.width} pixels wide after a double click"

    def mirrored(self):
        self.end()
        self.launch("-reverse")
        names = ("Menu", "Search", "Volume", "Now playing", "Next", "Back")  # from left to right
        self.user.choose("Sources", self.artist)
        wait_until(lambda: self.user.rows("Songs"), 15, "songs")
        places = [self.user.extents(self.user.wait_for(name)).x for name in names]
        assert places == sorted(places), dict(zip(names, places))
        songs, sources = self.user.box("Songs"), self.user.box("Sources")
        assert songs.x + songs.width <= sources.x + 2, "the sources are not at the right"
        self.environment.screenshot(self.output / "mirrored-window.png")
        self.end()
        self.launch()
        self.user.wait_for("Search")
        return "the window is mirrored"

    def high_contrast(self):
        settings = self.environment.home / ".config" / "kdeglobals"
        settings.write_text(HIGH_CONTRAST)
        desktop = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5", "KDE_FULL_SESSION": "true"}
        self.end()
        self.environment.env.update(desktop)
        try:
            self.launch()
            self.user.choose("Sources", self.artist)
            wait_until(lambda: self.user.rows("Songs"), 15, "songs")
            self.environment.screenshot(self.output / "high-contrast-window.png")
            songs = self.environment.pixels(self.user.box("Songs"))
            black = sum(songs[at:at + 3] == b"\0\0\0" for at in range(0, len(songs), 3)) * 3 / len(songs)
            assert black > 0.5, f"{black:.0%} of the songs' pixels are black"
        finally:
            self.end()
            settings.unlink()
            for name in desktop:
                del self.environment.env[name]
            self.launch()
            self.user.wait_for("Search")
        return f"{black:.0%} of the songs' pixels are black"

    def place(self):
        return self.user.extents(self.user.active_window())
