# SPDX-License-Identifier: GPL-3.0-or-later
"""What the desktop does with the program: its remote controls, and a second start."""

from environment import wait_until
from recorder import AUDIBLE, SILENT
from remote_control import RemoteControl


class DesktopSteps:
    """Steps of a journey whose song plays; they end with it playing again."""

    STEPS = ("mpris", "second_start")

    def mpris(self):
        remote = RemoteControl(self.environment, "zib")
        first = self.now_playing()
        assert remote.title() == first, remote.title()
        remote.run("pause")
        wait_until(lambda: self.recorder.listen(0.2) < SILENT, 5, "silence")
        assert remote.status() == "Paused", remote.status()
        remote.run("next")
        wait_until(lambda: self.now_playing() not in ("", first), 10, "the next song")
        wait_until(lambda: remote.title() == self.now_playing(), 5, "its title")
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")
        second = remote.title()
        remote.run("volume", "0.4")
        wait_until(lambda: self.user.value_of("Volume") == 40, 5, "the volume in the window")
        remote.run("volume", "1")
        # Late in a song this goes to its beginning, and from there to the song before.
        wait_until(lambda: remote.run("previous") == "" and remote.title() == first, 20, "the first song")
        wait_until(lambda: self.recorder.listen(0.25) > AUDIBLE, 20, "sound")
        return f"{second}, and back"

    def second_start(self):
        self.user.minimize()
        wait_until(lambda: not self.user.sees_window("Zib"), 5, "the window to be gone")
        self.environment.run([str(self.bin / "zib")])
        wait_until(lambda: self.user.sees_window("Zib"), 5, "the window")
        assert self.zib.poll() is None, "the first program has ended"
        return "the window came back"
