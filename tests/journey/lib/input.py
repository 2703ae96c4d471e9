# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Keyboard and mouse of the screen."""

import subprocess


class Input:
    def __init__(self, environment):
        self._environment = environment

    def _run(self, *arguments, text=None):
        subprocess.run(["xdotool", *arguments], env=self._environment, input=text, text=True, check=True, timeout=60)

    def _ask(self, *arguments):
        answer = subprocess.run(["xdotool", *arguments], env=self._environment, capture_output=True, text=True,
                                check=False, timeout=60)
        return answer.stdout.strip("\n") if answer.returncode == 0 else None

    def window_with_keys(self):
        """The title of the window that gets the keys; None when there is none."""
        return self._ask("getwindowfocus", "getwindowname")

    def bring_to_front(self, process_id, name):
        """A window of one of several programs on the screen."""
        self._run("search", "--all", "--onlyvisible", "--pid", str(process_id), "--name", name, "windowactivate")

    def keys(self, *keys):
        """Presses keys one after the other: "Tab", "ctrl+a"."""
        self._run("key", "--delay", "4", *keys)

    def type(self, text):
        """Types a text. It goes through a pipe, so that a password appears in no process list."""
        self._run("type", "--delay", "4", "--file", "-", text=text)

    def click(self, x, y, *, button=1, times=1):
        self._run("mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60", str(button))

    def wheel(self, x, y, steps):
        """Turns the wheel over a point; down when steps is positive."""
        self._run("mousemove", str(x), str(y), "click", "--repeat", str(abs(steps)), "--delay", "15",
                  "5" if steps > 0 else "4")
