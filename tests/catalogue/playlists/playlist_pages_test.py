#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The public pages in a browser: they show hostile texts as texts, play the songs one after another, and the keyboard
alone reaches everything. playlist_pages_test.py PROGRAM [FOLDER]: with a folder, pictures of the pages are left there."""

import pathlib
import sys
import tempfile
import wave

from browser import Browser, wait_until
from playlist_client import Service

USER = "Ann_Lee-0123456789abcdef0123456789abcdef"
HOSTILE = "<img src=x onerror=alert(1)><script>alert(2)</script>"
FOCUSED = ("(e => e.id || e.dataset.location || e.getAttribute('href') || e.tagName)(document.activeElement)")
# What the player plays stands in no element of the page, so the page's own words are read.
ELAPSED = "document.getElementById('elapsed').textContent"
CURRENT = "[...document.querySelectorAll('[aria-current]')].map(e => e.querySelector('.title').textContent).join()"


def make_songs(folder):
    for number, seconds in ((1, 3), (2, 40)):
        with wave.open(str(folder / f"Song {number}.wav"), "wb") as song:
            song.setnchannels(1)
            song.setsampwidth(2)
            song.setframerate(8000)
            song.writeframes(bytes(16000 * seconds))


def song_address(service, number):
    """Of the song in the service's own index."""
    _, page = service.request("GET", "/api/v4/artist/search?api_key=K&bucket=audio&name=unknown+artist")
    text = page.decode()
    for entry in text.split("<audio>")[1:]:
        if f"Song {number}" in entry and "<url>" in entry:
            return entry.split("<url>")[1].split("</url>")[0]
    return None


def publish(service):
    songs = [wait_until(lambda n=n: song_address(service, n), 60, "the songs' index") for n in (1, 2)]
    tracks = [{"Name": "Quiet start", "Artist": "Amber Tide", "Duration": 3, "Location": songs[0]},
              {"Name": HOSTILE, "Artist": "The “Others” & Co", "Duration": 225, "Location": "http://127.0.0.1:1/gone.mp3"},
              {"Name": "On my disc", "Artist": "Paper Harbour", "Duration": 187, "Location": "file:///etc/passwd"},
              {"Name": "Long way home", "Artist": "Paper Harbour", "Duration": 3671, "Location": songs[1]}]
    for number in range(26):
        service.publish(USER, f"Evening walk {number + 1}", tracks, tags="jazz,late night", artists="Amber Tide",
                        description="For the way home, when the streets are empty." if number % 2 else "")
    return service.publish(USER, "Sunday morning & coffee", tracks, tags="folk,slow,rock & roll",
                           description="What we listen to before anybody else is awake.\nBest with the window open.",
                           artists="Amber Tide, The “Others” & Co, Paper Harbour"), \
        service.publish(USER, HOSTILE, tracks, description=HOSTILE, tags=HOSTILE, artists=HOSTILE, hidden=True)


def check_hostile(browser, url):
    browser.open(url)
    assert browser.evaluate("document.querySelector('h1').textContent") == HOSTILE
    assert browser.evaluate("document.querySelector('.description').textContent") == HOSTILE
    assert browser.evaluate("document.querySelectorAll('main img, main script:not([src])').length") == 0
    assert not browser.console, browser.console


def check_keyboard(browser):
    """Tab leads through everything in the order in which it stands, each with a name and a focus that is seen."""
    expected = browser.evaluate(
        "[...document.querySelectorAll('a, button, input')].filter(e => !e.disabled)"
        ".map(e => e.id || e.dataset.location || e.getAttribute('href'))")
    reached = []
    for _ in expected:
        browser.press("Tab")
        reached.append(browser.evaluate(FOCUSED))
        assert browser.evaluate("getComputedStyle(document.activeElement).outlineStyle") != "none", reached[-1]
    assert reached == expected, f"{reached} and not {expected}"
    nodes = browser.call("Accessibility.getFullAXTree")["nodes"]
    nameless = [node["role"]["value"] for node in nodes if not node.get("ignored") and not node["name"]["value"] and
                node["role"]["value"] in ("button", "link", "slider", "searchbox", "heading")]
    assert not nameless, nameless
    roles = {node["role"]["value"] for node in nodes if not node.get("ignored")}
    assert {"main", "navigation", "banner", "heading", "list", "slider", "region"} <= roles, roles


def check_playing(browser, url):
    browser.open(url)
    check_keyboard(browser)
    browser.evaluate("document.querySelector('button.song').focus()")
    browser.press("Enter", text="\r")
    wait_until(lambda: browser.evaluate(ELAPSED) != "0:00", 30, "the song's time to pass")
    assert browser.evaluate(CURRENT) == "Quiet start"
    assert browser.evaluate("document.getElementById('play').getAttribute('aria-label')") == "Pause"
    wait_until(lambda: browser.evaluate(CURRENT) == "Long way home", 60, "the next song that can be played")
    assert not browser.evaluate("document.querySelectorAll('.note')[1].hidden"), "the broken song is not marked"
    wait_until(lambda: browser.evaluate(ELAPSED) != "0:00", 30, "the next song's time to pass")
    browser.evaluate("document.getElementById('position').focus()")
    for _ in range(20):
        browser.press("ArrowRight")
    wait_until(lambda: int(browser.evaluate(ELAPSED).split(":")[1]) >= 20, 30, "the seek")
    browser.evaluate("document.getElementById('play').focus()")
    browser.press(" ", "Space", text=" ")
    wait_until(lambda: browser.evaluate("document.getElementById('play').getAttribute('aria-label')") == "Play", 10, "the pause")
    assert browser.evaluate("document.querySelector('meta[property=\"og:title\"]').content") == "Sunday morning & coffee"
    assert browser.evaluate("document.querySelector('link[rel=canonical]').href") == url


def check_layout(browser, service, page, pictures):
    for address, name in ((page, "playlist"), ("/playlists/", "list")):
        for width, height, device in ((390, 844, "phone"), (1280, 800, "desktop")):
            for dark in (False, True):
                browser.look_like(width, height, dark, reduced_motion=True)
                browser.open(service.url + address)
                assert browser.evaluate("document.documentElement.scrollWidth") <= width, f"{name} is too wide for a {device}"
                if name == "playlist":
                    browser.evaluate("document.querySelector('button.song').click()")
                    wait_until(lambda: browser.evaluate(ELAPSED) != "0:00", 30, "the song's time to pass")
                    moving = browser.evaluate("document.getAnimations().length")
                    assert moving == 0, "something moves although the desktop asks for less"
                if pictures:
                    browser.screenshot(pictures / f"{name}-{device}-{'dark' if dark else 'light'}.png")
    browser.open(service.url + "/playlists/")
    check_keyboard_of_list(browser)


def check_keyboard_of_list(browser):
    browser.evaluate("document.querySelector('[rel=next]').focus()")
    browser.press("Enter", text="\r")
    wait_until(lambda: "before=" in browser.evaluate("location.href"), 30, "the older playlists")
    wait_until(lambda: browser.evaluate("document.readyState") == "complete", 30, "the page")
    browser.evaluate("const words = document.getElementById('words'); words.value = 'sunday'; words.focus()")
    browser.press("Enter", text="\r")
    wait_until(lambda: browser.evaluate("document.querySelectorAll('.playlists article').length") == 1, 30, "the search")


def main(program, pictures=None):
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        music = folder / "music"
        music.mkdir()
        make_songs(music)
        service = Service(program, folder, "--music", music, "--rate", "0")
        browser = Browser(folder / "profile")
        try:
            page, hostile = publish(service)
            check_hostile(browser, service.url + hostile)
            check_playing(browser, service.url + page)
            check_layout(browser, service, page, pictures)
        finally:
            browser.end()
            status = service.end()
        assert status == 0, status


if __name__ == "__main__":
    main(sys.argv[1], *(pathlib.Path(argument) for argument in sys.argv[2:3]))
