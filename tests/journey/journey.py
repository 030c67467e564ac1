#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""journey.py BIN_FOLDER OUTPUT_FOLDER [STEP…]: does the main job as a person would, with the real programs, unattended.

Prints "step NAME ok|FAILED MS DETAIL" for each step and ends with "journey: N steps passed, N failed". Leaves a
screenshot of each step and all that was heard in OUTPUT_FOLDER. A step that fails does not end the journey: the
later ones show how far the fault reaches. With steps named, as start and search, only those are done.
"""

import pathlib
import plistlib
import subprocess
import sys
import time
import traceback
import urllib.request

from accessibility_steps import AccessibilitySteps
from desktop_steps import DesktopSteps
from desktop_user import DesktopUser
from discovery_steps import DiscoverySteps
from environment import Environment, wait_until
from gallery_steps import GallerySteps
from language_steps import LanguageSteps
from library_steps import LibrarySteps
from page_steps import PageSteps
from picture_steps import PictureSteps
from recorder import AUDIBLE, SILENT, Recorder
from session_steps import SessionSteps
from sharing_steps import SharingSteps
from source_steps import SourceSteps
from window_steps import WindowSteps

ARTIST = "Kestrel Motorway"  # of the songs that come with the program


class Journey(DesktopSteps, LibrarySteps, SourceSteps, SharingSteps, WindowSteps, PageSteps, DiscoverySteps,
              SessionSteps, AccessibilitySteps, LanguageSteps, GallerySteps, PictureSteps):
    def __init__(self, bin_folder, output):
        self.bin = bin_folder
        self.output = output
        self.passed = self.failed = 0
        self.zib = None
        self.environment = Environment()
        self.user = DesktopUser(self.environment)
        self.user.look_at("zib")
        self.recorder = Recorder(self.environment)
        self.log = open(output / "zib.log", "wb")
        self.artist = ARTIST
        self.songs = 0
        self.loved = None

    # Steps, in order. Each returns a detail for its line.

    def start(self):
        self.launch()
        self.user.wait_for("Search")
        return "the window is there"

    def search(self):
        self.user.click(self.user.wait_for("Search"))
        self.user.type(ARTIST)
        self.user.press("Return")
        self.songs = wait_until(lambda: self.user.rows("Songs"), 10, "songs in the table")
        assert self.songs >= 3, f"only {self.songs} songs"
        return f"{self.songs} songs by {ARTIST}"

    def play(self):
        self.user.double_click_row("Songs", 0)
        title = wait_until(lambda: self.now_playing().startswith(ARTIST) and self.now_playing(), 10, "the ticker")
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")
        loudness = self.recorder.listen(2)
        assert loudness > AUDIBLE, f"loudness {loudness:.5f}"
        return f"{title}, loudness {loudness:.4f}"

    def pause(self):
        self.toggle()
        wait_until(lambda: self.recorder.listen(0.2) < SILENT, 3, "silence")
        elapsed = self.seconds("Elapsed time")
        loudness = self.recorder.listen(1.5)
        assert loudness < SILENT, f"loudness {loudness:.5f}"
        assert self.seconds("Elapsed time") == elapsed, "the time goes on while paused"
        return f"silent at {elapsed} s"

    def resume(self):
        before = self.seconds("Elapsed time")
        self.toggle()
        wait_until(lambda: self.recorder.listen(0.2) > AUDIBLE, 3, "sound")
        wait_until(lambda: self.seconds("Elapsed time") > before, 5, "the time to go on")
        return f"heard again from {before} s"

    def seek(self):
        length = self.seconds("Elapsed time") + self.seconds("Remaining time")
        self.user.click(self.user.wait_for("Song progress"))
        begin = time.monotonic()
        elapsed = wait_until(lambda: max(self.seconds("Elapsed time") - length // 3, 0), 10, "the time to jump")
        elapsed += length // 3
        passed = time.monotonic() - begin
        assert abs(elapsed - length / 2) <= 2 + passed, f"{elapsed} s of {length} s"
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 5, "sound")
        return f"{elapsed} s of {length} s"

    def love(self):
        self.user.click(self.user.wait_for("Love"))
        self.user.click(self.user.wait_for("OK", seconds=5))  # the notice of the first loved song
        wait_until(self.loved_songs, 5, "the loved song in the library file")
        self.loved = self.loved_songs()
        assert len(self.loved) == 1, self.loved
        return self.loved[0]

    def download(self):
        self.user.click(self.user.wait_for("Download"))
        self.user.click(self.user.wait_for("OK", seconds=5))  # the notice of downloads
        track = wait_until(self.downloaded_song, 20, "the downloaded song in the library file")
        folder = self.environment.home / "Music" / "Zib" / "Zib Music"
        files = [path for path in folder.rglob("*") if path.is_file()]
        assert [path.name for path in files] == [track["Name"] + ".mp3"], files
        with urllib.request.urlopen(track["Location"], timeout=20) as served:
            assert files[0].read_bytes() == served.read(), "not the bytes that are served"
        return f"{files[0].relative_to(folder)}, {files[0].stat().st_size} bytes"

    def quit(self):
        catalogue = self.catalogue_processes()
        assert catalogue, "the bundled service did not run"
        self.user.press("ctrl+q")
        self.zib.wait(10)
        assert self.zib.returncode == 0, f"exit code {self.zib.returncode}"
        wait_until(lambda: not self.catalogue_processes(), 5, "the bundled service to end")
        return "both programs ended"

    def restart(self):
        self.launch()
        self.user.choose("Sources", ARTIST)
        rows = wait_until(lambda: self.user.rows("Songs"), 15, "the search")
        assert rows == self.songs, f"{rows} songs instead of {self.songs}"
        assert self.loved_songs() == self.loved, self.loved_songs()
        found = self.library()["Recent Searches"][0]["Tracks"]
        assert [track["Name"] for track in found if track.get("Favorite")] == self.loved, "loved in the search too"
        self.user.double_click_row("Songs", 1)
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")
        self.environment.screenshot(self.output / "restart-playing.png")
        self.user.press("ctrl+q")
        self.zib.wait(10)
        return f"{rows} songs, love kept, plays again"

    def play_downloaded(self):
        self.launch("--services", "http://127.0.0.1:9")  # where nobody answers
        self.user.choose("Sources", ARTIST)
        wait_until(lambda: self.user.rows("Songs"), 15, "the search")
        self.user.double_click_row("Songs", 0)
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")
        assert not self.catalogue_processes(), "a service runs"
        status = self.user.text_of("Status")
        assert status == "Playing from disk", status
        self.user.press("ctrl+i")
        self.user.wait_for("Composer")
        self.environment.screenshot(self.output / "information.png")
        self.user.press("Escape")
        return f"{self.now_playing()}: {status}"

    STEPS = ("start", "search", "play", "pause", "resume", "seek", *DesktopSteps.STEPS, "love", "download", "quit",
             "restart", "play_downloaded", *LibrarySteps.STEPS, *SourceSteps.STEPS, *SharingSteps.STEPS,
             *WindowSteps.STEPS, *PageSteps.STEPS, *SessionSteps.STEPS, *AccessibilitySteps.STEPS,
             *GallerySteps.STEPS, *LanguageSteps.STEPS, *DiscoverySteps.STEPS,
             *PictureSteps.STEPS)

    # What the steps are made of.

    def launch(self, *arguments):
        self.zib = self.environment.start([str(self.bin / "zib"), *arguments], stdout=self.log, stderr=self.log)

    def toggle(self):
        self.user.click(self.user.wait_for("Play or pause"))

    def now_playing(self):
        return self.user.text_of("Now playing")

    def seconds(self, name):
        """The whole seconds of a time text such as -1:05:09; 0 for an empty one."""
        total = 0
        for part in self.user.text_of(name).lstrip("-\u2212").split(":"):
            total = total * 60 + int(part) if part.isdigit() else 0
        return total

    def library(self):
        exported = self.environment.run([str(self.bin / "zib"), "--export-library", "-"])
        return plistlib.loads(exported)

    def loved_songs(self):
        return [track["Name"] for track in self.library()["Library"].values() if track.get("Favorite")]

    def downloaded_song(self):
        return next((track for track in self.library()["Library"].values() if track.get("Downloaded")), None)

    def catalogue_processes(self):
        found = []
        for status in pathlib.Path("/proc").glob("[0-9]*/environ"):
            try:
                if (str(self.environment.home).encode() in status.read_bytes()
                        and b"zib-catalogue" in (status.parent / "cmdline").read_bytes()):
                    found.append(status.parent.name)
            except OSError:
                continue
        return found

    def run(self, steps):
        for step in steps or self.STEPS:
            name = step.rstrip("_").replace("_", "-")
            begin = time.monotonic()
            try:
                detail = getattr(self, step)()
                outcome = "ok"
                self.passed += 1
            except Exception as fault:
                traceback.print_exc()
                detail = " ".join(str(fault).split())
                outcome = "FAILED"
                self.failed += 1
            milliseconds = int((time.monotonic() - begin) * 1000)
            print(f"step {name} {outcome} {milliseconds} {detail}", flush=True)
            try:
                self.environment.screenshot(self.output / f"{name}.png")
            except subprocess.SubprocessError as fault:
                print(f"no screenshot of {name}: {fault}", file=sys.stderr)
        print(f"journey: {self.passed} steps passed, {self.failed} failed", flush=True)
        return self.failed == 0

    def close(self):
        self.recorder.save(self.output / "sound.wav")
        self.environment.close()
        self.log.close()


def main():
    bin_folder, output = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    output.mkdir(parents=True, exist_ok=True)
    journey = Journey(bin_folder, output)
    try:
        return 0 if journey.run(sys.argv[3:]) else 1
    finally:
        journey.close()


if __name__ == "__main__":
    sys.exit(main())
