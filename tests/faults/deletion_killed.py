#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A deletion that is killed at any of its statements leaves all or nothing, also one that is taken back, and no income counts twice."""

import rig  # noqa: F401 - finds the library of the journeys
from lib.sound_books import CONTRACT, INCOME
from rig.desk import DeskGone
from rig.fault import check, run, step
from rig.wire import Fate, nth

AMOUNT = 50_000_000


def counts(statement):
    """Reading changes nothing, so a kill before it is a kill before the next that does."""
    return not statement.startswith("SELECT")


class Deletions:
    def __init__(self, office, wire):
        self._office = office
        self._wire = wire
        self._persons = office.persons()
        self._field = office.database.value("INSERT INTO CustomFields(iTable,sName,iType) VALUES "
                                            f"({CONTRACT},'field',0) RETURNING iID")

    def contract(self, desk):
        """With all that a contract can have beside its row."""
        key = desk.add_contract(self._persons, AMOUNT)
        self._office.database.rows(
            f"INSERT INTO CustomFieldRecords(iFieldID,iTable,iRecordID,sValue) VALUES ({self._field},{CONTRACT},{key},'x'); "
            f"INSERT INTO FileDocs(iTable,iRecordID,iUserID,sName) VALUES ({CONTRACT},{key},1,'file'); "
            f"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,date,dAmount) "
            f"VALUES ({key},{self._persons[1]},1,NOW(),1000)")
        return key

    def prepared(self, desk, verb):
        """What the verb is for: a contract, or one that is deleted."""
        key = self.contract(desk)
        desk.do("list")
        if verb == "undo":
            desk.do("delete", key)
        return key

    def count(self, desk, verb):
        """How many statements it has."""
        key = self.prepared(desk, verb)
        self._wire.obey(None)
        desk.do(verb, key)
        return sum(counts(statement) for statement in self._wire.statements)

    def kill(self, key, desk, verb, number):
        self._wire.obey(nth(number, lambda _: self._end(desk), counts=counts))
        try:
            answer = desk.ask(verb, key)
            raise AssertionError(f"statement {number} was never reached: {answer}")
        except DeskGone:
            desk.kill()
        return self._wire.statements[-1]

    @staticmethod
    def _end(desk):
        desk.process.kill()
        return Fate.CUT_BEFORE

    def check(self, key, after):
        database = self._office.database
        self._office.check_books(after)
        there = database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE iID={key}") == 1
        binned = database.number(f"SELECT COUNT(*) FROM Bin WHERE sTable='AutomobilContracts' AND iRecordID={key}") == 1
        check(binned != there, f"{after}: the contract is in the bin, or where it was")
        for table, condition in (("CustomFieldRecords", "iTable=69 AND iRecordID"), ("FileDocs", "iTable=69 AND iRecordID"),
                                 ("AutomobilPayments", "iAutomobilContractID")):
            rows = database.number(f"SELECT COUNT(*) FROM {table} WHERE {condition}={key}")
            check((rows == 1) == there, f"{after}: {table} goes with its contract")


def killed_at_each(office, deletions, wire, looker, verb):
    desk = office.desk(port=wire.port)
    statements = deletions.count(desk, verb)
    desk.leave()
    step(f"{verb} has {statements} statements that are not reads")
    check(statements >= 5, "more than the row is concerned")
    for number in range(1, statements + 1):
        wire.obey(None)
        desk = office.desk(port=wire.port)
        key = deletions.prepared(desk, verb)
        statement = deletions.kill(key, desk, verb, number)
        after = f"{verb} killed before statement {number}, {statement[:60]}"
        deletions.check(key, after)
        income = office.database.number(INCOME)
        check(abs(float(looker.do("report")) - income) < 0.0001, f"{after}: the report counts what contracts say, {income}")
    return statements


def deletion_killed(office):
    office.open_office()
    wire = office.wire()
    deletions = Deletions(office, wire)
    looker = office.desk()
    statements = sum(killed_at_each(office, deletions, wire, looker, verb) for verb in ("delete", "undo"))
    wire.close()
    return f"{statements} kills, one before each statement: all or nothing every time"


if __name__ == "__main__":
    run(deletion_killed, __doc__)
