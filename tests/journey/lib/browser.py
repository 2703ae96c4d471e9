# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A browser without a window, told over a pipe of its own what to open, press and measure (DevTools protocol)."""

import base64
import json
import os
import select
import time

_PROGRAM = "chromium"
# As few helpers, files and connections as it can do with; the folder of its profile goes with the journey.
_OPTIONS = ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
            "--disable-component-update", "--disable-sync", "--disable-dev-shm-usage", "--remote-debugging-pipe")


class Browser:
    """Use it in a with statement. One page; requests holds the addresses that it asked for."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._rest = b""
        self._number = 0
        self._loaded = False
        self._session = None
        self.requests = []

    def __enter__(self):
        heard, self._out = os.pipe()
        self._in, said = os.pipe()
        # It takes its orders from the third of its files and answers to the fourth.
        started = ["/bin/bash", "-c", 'exec 3<&"$0" 4>&"$1"; shift; exec "$@"', str(heard), str(said), _PROGRAM, *_OPTIONS,
                   f"--user-data-dir={os.path.join(self._desktop.home, 'browser')}", "about:blank"]
        self._process = self._desktop.processes.start(started, log=self._desktop.log("browser"),
                                                      environment=self._desktop.environment, pass_fds=(heard, said))
        os.close(heard)
        os.close(said)
        page = next(target for target in self._ask("Target.getTargets")["targetInfos"] if target["type"] == "page")
        self._session = self._ask("Target.attachToTarget", targetId=page["targetId"], flatten=True)["sessionId"]
        for domain in ("Page", "Network", "Accessibility"):
            self._ask(domain + ".enable")
        return self

    def __exit__(self, *_):
        self._desktop.processes.end(self._process)
        os.close(self._in)
        os.close(self._out)

    # --- What is done with the page ---

    def open(self, path):
        self._loaded = False
        self._ask("Page.navigate", url="file://" + path)
        deadline = time.monotonic() + 20
        while not self._loaded:
            self._hear(deadline)

    def be(self, width, height, *, dark=False):
        """A screen of that size."""
        self._ask("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=width < 600)
        self._ask("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])

    def value(self, expression):
        """What a piece of script comes to."""
        answer = self._ask("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in answer:
            raise AssertionError(f"{expression}: {answer['exceptionDetails']}")
        return answer["result"].get("value")

    def press(self, key):
        code, text = {"Tab": (9, ""), "Enter": (13, "\r")}[key]
        self._ask("Input.dispatchKeyEvent", type="keyDown", key=key, code=key, windowsVirtualKeyCode=code, text=text)
        self._ask("Input.dispatchKeyEvent", type="keyUp", key=key, code=key, windowsVirtualKeyCode=code)

    def type(self, text):
        self._ask("Input.insertText", text=text)

    def picture(self):
        """The screen as a PNG."""
        return base64.b64decode(self._ask("Page.captureScreenshot")["data"])

    def spoken(self):
        """What a screen reader is told: (role, name) of everything that is not passed over."""
        nodes = self._ask("Accessibility.getFullAXTree")["nodes"]
        return [(node["role"]["value"], node.get("name", {}).get("value", "")) for node in nodes if not node.get("ignored")]

    # --- Talking ---

    def _ask(self, method, **parameters):
        self._number += 1
        order = {"id": self._number, "method": method, "params": parameters}
        if self._session:
            order["sessionId"] = self._session
        os.write(self._out, json.dumps(order).encode() + b"\0")
        deadline = time.monotonic() + 30
        while True:
            answer = self._hear(deadline)
            if answer.get("id") == self._number:
                if "error" in answer:
                    raise AssertionError(f"{method}: {answer['error']}")
                return answer["result"]

    def _hear(self, deadline):
        while b"\0" not in self._rest:
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self._in], [], [], left)[0]:
                raise AssertionError("the browser does not answer")
            part = os.read(self._in, 1 << 20)
            if not part:
                raise AssertionError("the browser ended")
            self._rest += part
        line, _, self._rest = self._rest.partition(b"\0")
        answer = json.loads(line)
        if answer.get("method") == "Network.requestWillBeSent":
            self.requests.append(answer["params"]["request"]["url"])
        if answer.get("method") == "Page.loadEventFired":
            self._loaded = True
        return answer
