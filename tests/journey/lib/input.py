# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Keyboard and mouse of the screen."""

import subprocess


class Input:
    def __init__(self, environment):
        self._environment = environment

    def _run(self, *arguments, text=None):
        subprocess.run(["xdotool", *arguments], env=self._environment, input=text, text=True, check=True, timeout=60)

    def keys(self, *keys):
        """Presses keys one after the other: "Tab", "ctrl+a"."""
        self._run("key", "--delay", "4", *keys)

    def type(self, text):
        """Types a text. It goes through a pipe, so that a password stands in no process list."""
        self._run("type", "--delay", "4", "--file", "-", text=text)

    def move(self, x, y):
        self._run("mousemove", "--sync", str(x), str(y))

    def click(self, x, y, *, button=1, times=1):
        # Already there, the pointer sends no motion to wait for.
        self._run("mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60", str(button))

    def wheel(self, x, y, steps):
        """Turns the wheel over a point; down when steps is positive."""
        self._run("mousemove", str(x), str(y), "click", "--repeat", str(abs(steps)), "--delay", "15",
                  "5" if steps > 0 else "4")
