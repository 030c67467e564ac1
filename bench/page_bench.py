#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How long from the start of a song to the drawn page about its artist, in the real window with the bundled service.

Two songs by two artists follow each other again and again, so that all that is asked for is warm. Drawn is the page once
its words stand; the bars move a little longer. --list names the benchmark; its name runs it and prints
"bench NAME RATIO BAR YARDSTICK". Over the bar it fails.
"""

import pathlib
import statistics
import sys
import time

import numpy

TOP = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOP / "bench"))
sys.path.insert(0, str(TOP / "tests/journey"))
from desktop_user import DesktopUser  # noqa: E402
from environment import Environment, wait_until  # noqa: E402
from start_bench import Screen  # noqa: E402

NAME, BAR, ROUNDS, AT_MOST = "page-shown", 1.0, 9, 0.3
PAGE_WORDS = (330, 290, 860, 640)  # the biography


def settled(screen):
    """The page once nothing in it changes any more."""
    before, since = screen.part(PAGE_WORDS).copy(), time.monotonic()
    while time.monotonic() - since < 4 or (before == before[0, 0]).all():  # nor while it is empty
        now = screen.part(PAGE_WORDS)
        if not numpy.array_equal(now, before):
            before, since = now.copy(), time.monotonic()
        time.sleep(0.02)
    return before


def back(user):
    """To the song before: late in a song its beginning comes first."""
    time.sleep(5)
    user.press("ctrl+Left")
    time.sleep(0.5)
    user.press("ctrl+Left")


def bench():
    environment = Environment("1280x800")
    try:
        screen = Screen(environment)
        user = DesktopUser(environment)
        user.look_at("zib")
        environment.start([str(TOP / "build/release/bin/zib")], stderr=-3)
        user.click(user.wait_for("Tags"))
        user.click(user.wait_for("Search"))
        user.type("techno")
        user.press("Return")
        wait_until(lambda: user.rows("Songs"), 20, "songs")
        artists = user.texts("Songs", "Artist")
        first = next(row for row in range(1, len(artists)) if artists[row] != artists[row - 1]) - 1
        user.double_click_row("Songs", first)
        user.choose("Sources", "Now Playing")
        settled(screen)
        user.press("ctrl+Right")
        pages = [None, settled(screen)]
        back(user)
        pages[0] = settled(screen)
        user.press("ctrl+Right")
        settled(screen)
        assert not numpy.array_equal(pages[0], pages[1]), "the pages differ"
        seconds = []
        for number in range(2 * ROUNDS):
            here = number % 2  # on the second page first
            if here:
                user.press("ctrl+Right")
            else:
                back(user)
            begin = time.monotonic()
            while not numpy.array_equal(screen.part(PAGE_WORDS), pages[here]):
                assert time.monotonic() - begin < 20, "the page was not drawn"
                time.sleep(0.004)
            seconds.append(time.monotonic() - begin)
            time.sleep(1)
    finally:
        environment.close()
    median = statistics.median(seconds)
    print(f"{NAME}: {1000 * median:.0f} ms ({1000 * min(seconds):.0f} to {1000 * max(seconds):.0f})", file=sys.stderr)
    print(f"bench {NAME} {median / AT_MOST:.3f} {BAR:.1f} 300 ms", flush=True)
    return median <= BAR * AT_MOST


def main():
    if sys.argv[1:] == ["--list"]:
        print(NAME)
        return 0
    return 0 if bench() else 1


if __name__ == "__main__":
    sys.exit(main())
