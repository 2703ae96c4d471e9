#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Backups while two desks write without a pause: each is of one moment, whole, and comes back as what its manifest says."""

import json
import os
import threading

import rig
from lib import sound_books
from rig.drill import new_office
from rig.fault import check, run, step


class Writer(threading.Thread):
    """A desk that receives money and changes a contract until it is told to stop."""

    def __init__(self, desk, persons):
        super().__init__(daemon=True)
        self._desk = desk
        self._persons = persons
        self._stopped = threading.Event()
        self.begun = threading.Event()
        self.done = 0
        self.problem = None

    def run(self):
        try:
            key = self._desk.add_contract(self._persons, 500_000_000, "new")
            self.begun.set()
            while not self._stopped.is_set():
                for _ in range(20):
                    self._desk.do("receive", self._persons[0], 1 + self.done % 1000, f"receipt {self.done}")
                    self.done += 1
                self._desk.open(key)
                self._desk.do("set", "dAmount", 5_000_000 + 1_000_000 * (self.done % 100))
                self._desk.do("save", awaited="closed")
                self.done += 1
        except Exception as error:  # noqa: BLE001 - told by the test
            self.problem = error
            self.begun.set()

    def stop(self):
        self._stopped.set()
        self.join(60)
        if self.problem is not None:
            raise self.problem


def holds(folder, manifest, what):
    """The database against what the manifest says of each table, asked by the server's own client."""
    for table in manifest["tables"]:
        name = table["name"]
        if name in ("Leases", "Changes"):
            # The restoring writes into them.
            continue
        rows = folder.database.number(f"SELECT COUNT(*) FROM `{name}`")
        check(rows == table["rows"], f"{what}: {name} has {rows:.0f} rows, not {table['rows']}")
        checksum = checksum_of(folder.database, name)
        check(table["checksum"] == checksum, f"{what}: the checksum of {name} is {checksum}, not {table['checksum']}")


def checksum_of(database, table):
    """The server's own; of a table that computes a column, which that is another each time for, over what its rows hold."""
    columns = database.rows("SELECT COLUMN_NAME, EXTRA FROM information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE() AND "
                            f"TABLE_NAME='{table}' ORDER BY ORDINAL_POSITION")
    stored = [column["COLUMN_NAME"] for column in columns if "VIRTUAL GENERATED" not in column["EXTRA"]]
    if len(stored) == len(columns):
        return int(database.rows(f"CHECKSUM TABLE `{table}`")[0]["Checksum"])
    sums = ",".join(f"COALESCE(CRC32(`{name}`),'-')" for name in stored)
    return int(database.number(f"SELECT COALESCE(SUM(CRC32(CONCAT_WS(',',{sums}))),0)%4294967296 FROM `{table}`"))


def backup_under_load(office):
    folder = new_office(office, "office", keeps_log=True)
    folder.open()
    writers = [Writer(folder.desk(), folder.persons), Writer(folder.desk(user=rig.OTHER_CLERK), folder.persons)]
    for writer in writers:
        writer.start()
        check(writer.begun.wait(60), "the desks are at work")
    taken = []
    for number in range(1, office.rounds + 1):
        before = sum(writer.done for writer in writers)
        path = os.path.join(folder.path, "backups", f"load-{number}.sql.zst")
        folder.tool("--backup", path)
        taken.append((path, sum(writer.done for writer in writers) - before))
    for writer in writers:
        writer.stop()
    step(f"saves during each backup: {[saves for _, saves in taken]}")
    check(any(saves > 0 for _, saves in taken), "desks save while a backup is taken")
    folder.close()
    other = office.office_folder("other")
    other.create(keeps_log=False)
    for path, _ in taken:
        name = os.path.basename(path)
        folder.tool("--verify", path)
        with open(path + ".json", encoding="utf-8") as file:
            manifest = json.load(file)
        check(manifest["oneSnapshot"], f"{name} is of one moment")
        other.tool("--restore", path)
        other.open()
        holds(other, manifest, name)
        sound_books.check(other.database, name)
        other.close()
    return f"{len(taken)} backups while {sum(writer.done for writer in writers)} saves went on; each is whole, and its books balance"


if __name__ == "__main__":
    run(backup_under_load, __doc__, rounds=2)
