# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Processes that never outlive the journey that started them.

Every process is known by its id. This process adopts the orphans of what it started, so that a helper's helper (the
accessibility bus starts daemons of its own) is found and ended as well, and everything asks the kernel to be told when
this process dies, so that a killed journey leaves nothing behind.
"""

import ctypes
import os
import signal
import subprocess
import time

_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36
_libc = ctypes.CDLL(None, use_errno=True)


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM, 0, 0, 0)


def _children_of(parent):
    """Ids of the running children of a process."""
    found = []
    for entry in os.listdir("/proc"):
        if not entry.isdigit():
            continue
        try:
            with open(f"/proc/{entry}/stat", encoding="utf-8", errors="replace") as stat:
                fields = stat.read().rpartition(")")[2].split()
        except OSError:
            continue
        if int(fields[1]) == parent and fields[0] != "Z":
            found.append(int(entry))
    return found


class Processes:
    """Starts processes and ends them all, in reverse order."""

    def __init__(self):
        self._started = []
        _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)

    def start(self, arguments, *, log, environment=None, pass_fds=(), talks=False):
        """talks: its standard input and output are pipes to the caller, and only its errors go to the log."""
        with open(log, "ab") as output:
            process = subprocess.Popen(
                arguments, stdin=subprocess.PIPE if talks else subprocess.DEVNULL,
                stdout=subprocess.PIPE if talks else output, stderr=output, env=environment,
                pass_fds=pass_fds, start_new_session=True, preexec_fn=_die_with_parent)
        self._started.append(process)
        return process

    def forget(self, process):
        """It has ended by itself, or was killed by its test."""
        self._started.remove(process)

    def end(self, process, *, patience=5.0):
        """Asks the process group to end, and insists after a while."""
        for signal_number, wait in ((signal.SIGTERM, patience), (signal.SIGKILL, 5.0)):
            if process.poll() is not None:
                break
            try:
                os.killpg(process.pid, signal_number)
            except ProcessLookupError:
                break
            try:
                process.wait(wait)
            except subprocess.TimeoutExpired:
                continue
        if process in self._started:
            self._started.remove(process)

    def end_all(self):
        for process in reversed(list(self._started)):
            self.end(process)
        self._end_orphans()

    def _end_orphans(self):
        deadline = time.monotonic() + 10
        signal_number = signal.SIGTERM
        while True:
            self._reap()
            orphans = _children_of(os.getpid())
            if not orphans:
                return
            if time.monotonic() > deadline:
                raise RuntimeError(f"processes that do not end: {orphans}")
            for orphan in orphans:
                try:
                    os.kill(orphan, signal_number)
                except ProcessLookupError:
                    pass
            if time.monotonic() > deadline - 5:
                signal_number = signal.SIGKILL
            time.sleep(0.05)

    @staticmethod
    def _reap():
        while True:
            try:
                if os.waitpid(-1, os.WNOHANG)[0] == 0:
                    return
            except ChildProcessError:
                return
