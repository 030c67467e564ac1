# SPDX-License-Identifier: GPL-3.0-or-later
"""A fresh home with a display, a session bus and a sound server of its own, all ended when it is closed."""

import os
import pathlib
import select
import shutil
import subprocess
import tempfile
import time

SINK = "journey"


class Environment:
    def __init__(self, size="1366x900"):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="zib-journey-"))
        self.processes = []
        self.home = self.root / "home"
        runtime = self.root / "run"
        for folder in (self.home, runtime, self.root / "tmp"):
            folder.mkdir(mode=0o700)
        self.env = {key: os.environ[key] for key in ("PATH", "LANG", "LC_ALL") if key in os.environ}
        self.env.setdefault("LANG", "C.UTF-8")
        self.env.update(
            HOME=str(self.home),
            TMPDIR=str(self.root / "tmp"),
            XDG_RUNTIME_DIR=str(runtime),
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            QTWEBENGINE_CHROMIUM_FLAGS="--force-renderer-accessibility",
            PULSE_RUNTIME_PATH=str(runtime / "pulse"),
            PULSE_SERVER=f"unix:{runtime}/pulse/native",
        )
        self._start_display(size)
        self._start_bus()
        self._start_sound()

    def start(self, command, **options):
        process = subprocess.Popen(command, env=self.env, stdin=subprocess.DEVNULL, **options)
        self.processes.append(process)
        return process

    def run(self, command, **options):
        return subprocess.run(command, env=self.env, stdin=subprocess.DEVNULL, timeout=30, check=True,
                              capture_output=True, **options).stdout

    def _start_display(self, size):
        server = self.start(["Xvfb", "-displayfd", "1", "-screen", "0", f"{size}x24", "-nolisten", "tcp",
                             "-fbdir", str(self.root)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.env["DISPLAY"] = ":" + first_line(server, 20)
        self.start(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # A neutral ground behind the window, as a desktop would have.
        subprocess.run(["xsetroot", "-solid", "#3a4147"], env=self.env, check=False,
                       stderr=subprocess.DEVNULL) if shutil.which("xsetroot") else None

    def _start_bus(self):
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"],
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = first_line(bus, 20)

    def start_system_bus(self):
        """For programs started from now on; nobody is on it but who comes."""
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"],
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.env["DBUS_SYSTEM_BUS_ADDRESS"] = first_line(bus, 20)

    def _start_sound(self):
        self.start(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                    "--load=module-native-protocol-unix auth-anonymous=1",
                    f"--load=module-null-sink sink_name={SINK} rate=44100 channels=2"],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        socket = pathlib.Path(self.env["PULSE_RUNTIME_PATH"]) / "native"
        wait_until(socket.exists, 20, "the sound server")

    def screenshot(self, path):
        self.run(["import", "-window", "root", str(path)])

    def window_picture(self, path):
        """The program's window alone, without the frame that the desktop draws around it."""
        window = self.run(["xdotool", "search", "--onlyvisible", "--name", "^Zib$"]).split()[0].decode()
        self.run(["import", "-window", window, str(path)])

    def pixels(self, box):
        """What stands in that place of the screen, with its edge."""
        return self.run(["import", "-window", "root", "-crop", f"{box.width + 4}x{box.height + 4}+{max(box.x - 2, 0)}+{max(box.y - 2, 0)}",
                         "-depth", "8", "rgb:-"])

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self.root, ignore_errors=True)


def first_line(process, seconds):
    ready, _, _ = select.select([process.stdout], [], [], seconds)
    line = process.stdout.readline().decode().strip() if ready else ""
    if not line:
        raise RuntimeError(f"{process.args[0]} did not start")
    return line


def wait_until(condition, seconds, what):
    """Returns the condition's first true value; polls, since what it asks has no event to wait for."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.05)
