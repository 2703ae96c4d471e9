# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Waiting for a condition, never for a span of time."""

import time

DEFAULT_SECONDS = 10.0
_PAUSE = 0.02


class TimeRanOut(AssertionError):
    """The awaited event did not come."""


def wait_for(condition, what, *, seconds=DEFAULT_SECONDS, pause=_PAUSE):
    """Calls the condition until it returns something true, and returns that.

    what describes what is awaited, or is a function that does so when the time has run out. An error that the
    condition raises (a window that goes while it is read) counts as "not yet", and is named when time runs out.
    """
    deadline = time.monotonic() + seconds
    while True:
        problem = None
        try:
            result = condition()
            if result:
                return result
        except Exception as error:  # noqa: BLE001 - anything may vanish while it is read
            problem = error
        if time.monotonic() > deadline:
            reason = f" ({type(problem).__name__}: {problem})" if problem else ""
            awaited = what() if callable(what) else what
            raise TimeRanOut(f"waited {seconds:g} s in vain for {awaited}{reason}")
        time.sleep(pause)
