#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A backup, a verification and a restoring that are killed at any moment: the office is what it was, or what it was to become."""

import os
import subprocess
import time

from rig.drill import History, new_office
from rig.fault import check, run, step
from rig.folder import differences


class Kills:
    def __init__(self, office, folder):
        self._office = office
        self._folder = folder
        self.killed = dict.fromkeys(("--backup", "--verify", "--restore"), 0)

    def kill(self, seconds, *words):
        """The program with the command, killed after so long; whether it had not ended by then."""
        process = self._folder.begin_tool(*words)
        try:
            process.wait(seconds)
            alive = False
        except subprocess.TimeoutExpired:
            alive = True
        self._folder.kill(process)
        self.killed[words[0]] += alive
        return alive

    def whole(self, allowed, after):
        """The program starts on the folder, which holds one of these states and no other."""
        self._folder.start_once()
        rows = self._folder.rows_of_all()
        found = [differences(state, rows) for state in allowed]
        check(any(not words for words in found), f"{after}: {found}")

    def listed(self, after):
        """What stands under the name of a backup can be restored."""
        folder = os.path.join(self._folder.path, "backups")
        for name in sorted(os.listdir(folder)):
            if name.endswith(".sql.zst"):
                self._folder.tool("--verify", os.path.join(folder, name))
                os.remove(os.path.join(folder, name))
        # The next one clears up after it.
        os.remove(self._folder.tool("--backup", folder).strip())
        left = [name for name in os.listdir(folder) if name.endswith(".part")]
        check(not left, f"{after}: what was left unfinished is gone: {left}")


def duration(folder, *words):
    began = time.monotonic()
    folder.tool(*words)
    return time.monotonic() - began


def backup_killed(office):
    folder = new_office(office, "office", keeps_log=True)
    history = History(office, folder)
    folder.open()
    desk = folder.desk()
    history.go_on([desk])
    kept = office.folder("kept.sql.zst")
    folder.tool("--backup", kept)
    before = folder.tables()
    history.go_on([desk])
    now = folder.tables()
    desk.leave()
    folder.close()
    kills = Kills(office, folder)
    took = {"--backup": duration(folder, "--backup", office.folder("measured.sql.zst")), "--verify": duration(folder, "--verify", kept)}
    for command, seconds in took.items():
        for number in range(1, office.rounds + 1):
            # A name as the program gives it: what is left of any other is nobody's to remove.
            path = os.path.join(folder.path, "backups", f"tzauto-20260101-{number:06}.sql.zst") if command == "--backup" else kept
            kills.kill(office.random.uniform(0, seconds), command, path)
            kills.whole([now], f"{command} killed, {number}")
            kills.listed(f"{command} killed, {number}")
        step(f"{command} takes {seconds:.1f} s; {kills.killed[command]} of {office.rounds} killed in the middle")
    seconds = duration(folder, "--restore", kept)
    kills.whole([before], "restored")
    states = [before]
    for number in range(1, office.rounds + 1):
        folder.open()
        desk = folder.desk()
        history.go_on([desk])
        desk.leave()
        states = [before, folder.tables()]
        folder.close()
        kills.kill(office.random.uniform(0, seconds), "--restore", kept)
        kills.whole(states, f"--restore killed, {number}")
    step(f"--restore takes {seconds:.1f} s; {kills.killed['--restore']} of {office.rounds} killed in the middle")
    return f"killed in the middle: {kills.killed}; the office is whole after each"


if __name__ == "__main__":
    run(backup_killed, __doc__, rounds=3)
