# SPDX-License-Identifier: GPL-3.0-or-later
"""A headless browser with a fresh profile, driven over its debugging protocol."""

import base64
import json
import os
import subprocess
import time
import urllib.request

import websocket


class Browser:
    """Its one page. Chromium's own sandbox cannot be made by root."""

    def __init__(self, folder):
        command = ["chromium", "--headless=new", "--remote-debugging-port=0", f"--user-data-dir={folder}", "--disable-gpu",
                   "--no-first-run", "--disable-background-networking", "--mute-audio", "--remote-allow-origins=*",
                   "about:blank"]
        if os.getuid() == 0:
            command.insert(1, "--no-sandbox")
        self.process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        place = folder / "DevToolsActivePort"
        wait_until(lambda: place.exists() and place.read_text().count("\n") > 0, 60, "the browser")
        port = place.read_text().split("\n")[0]

        def pages():
            with urllib.request.urlopen(f"http://127.0.0.1:{port}/json") as reply:
                return [page for page in json.load(reply) if page["type"] == "page"]

        wait_until(pages, 60, "a page")
        self._socket = websocket.create_connection(pages()[0]["webSocketDebuggerUrl"], timeout=60)
        self._number = 0
        self.console = []
        for domain in ("Page", "Runtime", "Log"):
            self.call(domain + ".enable")

    def call(self, method, **parameters):
        self._number += 1
        self._socket.send(json.dumps({"id": self._number, "method": method, "params": parameters}))
        while True:
            message = json.loads(self._socket.recv())
            if message.get("id") == self._number:
                if "error" in message:
                    raise RuntimeError(f"{method}: {message['error']}")
                return message["result"]
            if message.get("method") in ("Log.entryAdded", "Runtime.exceptionThrown", "Page.javascriptDialogOpening"):
                self.console.append(json.dumps(message["params"]))

    def evaluate(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True,
                           userGesture=True)
        if "exceptionDetails" in result:
            raise RuntimeError(result["exceptionDetails"])
        return result["result"].get("value")

    def open(self, url):
        self.call("Page.navigate", url=url)
        wait_until(lambda: self.evaluate("document.readyState") == "complete" and
                   self.evaluate("location.href").split("#")[0] == url, 60, url)

    def press(self, key, code=None, text=None, modifiers=0):
        named = {"key": key, "code": code or key, "modifiers": modifiers,
                 "windowsVirtualKeyCode": {"Tab": 9, "Enter": 13, " ": 32, "ArrowRight": 39}[key]}
        self.call("Input.dispatchKeyEvent", type="keyDown" if text else "rawKeyDown", **named,
                  **({"text": text} if text else {}))
        self.call("Input.dispatchKeyEvent", type="keyUp", **named)

    def look_like(self, width, height, dark, reduced_motion=False):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=width < 600)
        self.call("Emulation.setEmulatedMedia", features=[
            {"name": "prefers-color-scheme", "value": "dark" if dark else "light"},
            {"name": "prefers-reduced-motion", "value": "reduce" if reduced_motion else "no-preference"}])

    def screenshot(self, path):
        path.write_bytes(base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"]))

    def end(self):
        self._socket.close()
        self.process.terminate()
        self.process.wait(60)


def wait_until(holds, seconds, what):
    deadline = time.monotonic() + seconds
    while not (value := holds()):
        if time.monotonic() > deadline:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.1)
    return value
