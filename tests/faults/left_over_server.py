#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A killed program leaves its own database server behind, which no longer listens: the next start ends it at once."""

import os
import signal
import time

import rig  # noqa: F401 - finds the library of the journeys
from first_starts import ended
from lib.waiting import wait_for
from rig.fault import check, run, step

# Far more than ending what was left behind takes, and far less than waiting for it would.
MORE_THAN_A_START = 15.0


def server_of(folder):
    """The id of the server's process on the folder; None without one."""
    path = os.path.join(folder, "database", "server.pid")
    if not os.path.exists(path):
        return None
    with open(path, encoding="ascii") as file:
        return int(file.read())


def alive(process):
    try:
        with open(f"/proc/{process}/stat", encoding="ascii", errors="replace") as file:
            return file.read().rpartition(")")[2].split()[0] != "Z"
    except OSError:
        return False


def time_of(office, folder):
    began = time.monotonic()
    check(ended(office.embedded(folder, "--quit-after-login-shown")) == 0, "the start")
    return time.monotonic() - began


def left_over_server(office):
    folder = office.folder("embedded")
    time_of(office, folder)
    usual = time_of(office, folder)
    step(f"a start takes {usual:.1f} s")
    took = []
    for number in range(1, office.rounds + 1):
        program = office.embedded(folder)
        server = wait_for(lambda: server_of(folder), "the program's server")
        wait_for(lambda: "startup: server" in office.log_of(folder), "the server to answer")
        program.kill()
        program.wait()
        wait_for(lambda: not alive(server), "the system to end it with its program")
        # As where the system does not: on the program's files, with its options, and no longer listening.
        left = office.server_on(folder)
        wait_for(lambda: server_of(folder) == left.pid, "a server that is left behind")
        os.kill(left.pid, signal.SIGSTOP)
        took.append(time_of(office, folder) - usual)
        check(took[-1] < MORE_THAN_A_START, f"round {number}: {took[-1]:.1f} s longer than a start that finds nothing")
        check(left.wait(1) is not None, "the server that was left is gone")
    return f"ended within {max(took):.1f} s"


if __name__ == "__main__":
    run(left_over_server, __doc__, rounds=1)
