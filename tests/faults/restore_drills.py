#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Random histories of changes and deletions, each taken back from the bin, to the last minute, to a moment and to the backup, row by row."""

import os
import time

import rig
from lib import sound_books
from lib.waiting import wait_for
from rig.drill import History, new_office
from rig.fault import check, run, step
from rig.folder import differences


def moment(folder):
    """A time, as one types it, that lies behind what has been done and before what will be."""
    now = folder.database.value("SELECT NOW()")
    wait_for(lambda: folder.database.value("SELECT NOW()") > now, "the next second")
    time_text = folder.database.value("SELECT NOW()")
    wait_for(lambda: folder.database.value("SELECT NOW()") > time_text, "the second after")
    return time_text.replace(" ", "T")


def drill(office, folder, history, number):
    folder.open()
    desks = [folder.desk(), folder.desk(user=rig.OTHER_CLERK)]
    history.go_on(desks)
    backup = os.path.join(folder.path, "backups", f"drill-{number}.sql.zst")
    folder.tool("--backup", backup)
    at_backup = folder.tables()
    history.go_on(desks)
    at = moment(folder)
    at_moment = folder.tables()
    history.go_on(desks)
    history.delete_and_take_back(desks[0])
    in_the_end = folder.tables()
    check(differences(at_backup, at_moment) and differences(at_moment, in_the_end), "the three states are not the same")
    for desk in desks:
        desk.leave()
    folder.close()
    for words, wanted, what in (
            (("--to", "now"), in_the_end, "the last minute"), (("--to", at), at_moment, at), ((), at_backup, "the backup")):
        folder.tool("--restore", backup, *words)
        folder.open()
        found = differences(wanted, folder.tables())
        check(not found, f"history {number}, restored to {what}: {found}")
        sound_books.check(folder.database, f"history {number}, restored to {what}")
        folder.close()
    return len(at_backup)


def restore_drills(office):
    folder = new_office(office, "office", keeps_log=True)
    history = History(office, folder)
    began = time.monotonic()
    tables = 0
    for number in range(1, office.rounds + 1):
        tables = drill(office, folder, history, number)
        step(f"history {number} of {office.rounds}, {(time.monotonic() - began) / number:.1f} s each")
    return (f"{office.rounds} histories, each restored to the last minute, to a moment and to the backup: {tables} tables equal row by row; "
            f"{history.taken_back} contracts taken out of the bin")


if __name__ == "__main__":
    run(restore_drills, __doc__, rounds=3)
