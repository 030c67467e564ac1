# SPDX-License-Identifier: GPL-3.0-or-later
"""A remote control on the session bus, as media keys and the desktop's sound menu use it."""


class RemoteControl:
    def __init__(self, environment, player):
        self._environment = environment
        self._player = player

    def run(self, *command):
        """The answer to a command of playerctl."""
        return self._environment.run(["playerctl", f"--player={self._player}", *command]).decode().strip()

    def status(self):
        return self.run("status")

    def title(self):
        return self.run("metadata", "--format", "{{artist}} - {{title}}")
