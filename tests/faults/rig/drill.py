# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""An office in a data folder, and what desks do in it at random, to be taken back."""

from . import CLERK, OTHER_CLERK
from .fault import check
from .folder import differences

WORKS = (3, 6)


class History:
    """What two desks do to the contracts of an office, chosen at random."""

    def __init__(self, office, folder):
        self._random = office.random
        self._folder = folder
        self._persons = folder.persons
        self._count = 0
        self.taken_back = 0

    def go_on(self, desks):
        for _ in range(self._random.randint(*WORKS)):
            self._count += 1
            desk = self._random.choice(desks)
            keys = [row["iID"] for row in self._folder.database.rows("SELECT iID FROM AutomobilContracts ORDER BY iID")]
            work = self._random.choice((self._add, self._edit, self._edit, self._delete, self._receive)) if keys else self._add
            work(desk, self._random.choice(keys) if keys else None)

    def _amount(self):
        return 1_000_000 * self._random.randint(1, 400)

    def _add(self, desk, _):
        desk.add_contract(self._persons, self._amount(), f"new {self._count}")

    def _edit(self, desk, key):
        desk.open(key)
        if self._random.random() < 0.5:
            desk.do("set", "dAmount", self._amount())
        desk.do("set", "sExplain", f"edit {self._count}")
        desk.do("save", awaited="closed")

    def _delete(self, desk, key):
        desk.do("list")
        desk.do("delete", key)

    def _receive(self, desk, _):
        desk.do("receive", self._persons[0], self._random.randint(1, 1000), f"receipt {self._count}")

    def delete_and_take_back(self, desk):
        """The contract comes back under its key, with its document and everything else that had been there."""
        key = desk.add_contract(self._persons, self._amount(), "to be taken back")
        before = self._folder.tables()
        desk.do("list")
        desk.do("delete", key)
        rows = self._folder.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE iID={key}")
        check(rows == 0, f"contract {key} is deleted")
        check(desk.do("bin", "AutomobilContracts", key) == int(key), f"contract {key} is taken back under its key")
        after = self._folder.tables()
        # The history tells of both, counters go on, and a document that comes back has a number of its own.
        for table in ("Changes", "Properties", "Documents", "Docs"):
            before.pop(table), after.pop(table)
        contract = _without_document(before, after, self._folder, key)
        check(not contract, f"contract {key} is as it was: {contract}")
        self.taken_back += 1


def _without_document(before, after, folder, key):
    """What differs beside the number of the contract's document, whose rows must add up to the contract."""
    database = folder.database
    contract = database.row(f"SELECT iDocNum, iFiscalYear FROM AutomobilContracts WHERE iID={key}")
    book = database.row("SELECT COUNT(*) AS n, SUM(dBed) AS bed, SUM(dBes) AS bes FROM Docs "
                        f"WHERE iDocNum={contract['iDocNum']} AND iFiscalYear={contract['iFiscalYear']}")
    check(int(book["n"]) > 0 and abs(float(book["bed"]) - float(book["bes"])) < 0.0001, f"the document balances: {book}")
    columns = [row["COLUMN_NAME"] for row in database.rows(
        "SELECT COLUMN_NAME FROM information_schema.COLUMNS WHERE TABLE_NAME='AutomobilContracts' AND TABLE_SCHEMA=DATABASE() "
        "ORDER BY ORDINAL_POSITION")]
    number = columns.index("iDocNum")
    for tables in (before, after):
        tables["AutomobilContracts"] = sorted(row[:number] + row[number + 1:] for row in tables["AutomobilContracts"])
    return differences(before, after)


def new_office(office, name, *, keeps_log):
    """A data folder with two administrators and two persons, on which nothing works."""
    folder = office.office_folder(name)
    folder.create(keeps_log)
    folder.open()
    desk = folder.desk(user=None)
    desk.do("office", CLERK)
    folder.persons = [desk.do("person", *names) for names in (("سعید", "رضایی"), ("مریم", "کریمی"))]
    desk.leave()
    folder.database.rows("INSERT INTO Users(sUser,sPasswordHash,sName,iStatus,bAdmin) "
                         f"SELECT '{OTHER_CLERK}',sPasswordHash,'{OTHER_CLERK}',0,1 FROM Users")
    folder.close()
    return folder
