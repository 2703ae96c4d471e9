#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Money that is received, made void and sent on is killed at any statement: all of it or nothing, and the books are whole."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.desk import DeskGone
from rig.fault import check, run, step
from rig.wire import Fate, nth

AMOUNT = 90_000_000
INSTALMENT = 1000
DEPOSITED, BOUNCED = 1, 3


def counts(statement):
    """Reading changes nothing, so a kill before it is a kill before the next that does."""
    return not statement.startswith("SELECT")


class Money:
    """A contract with a plan, and what is done about its money. Each work is prepared, and then one command."""

    def __init__(self, office):
        self._office = office
        self._persons = office.persons()
        self._sayad = 6_000_000_000_000_000

    def _plan(self, desk):
        contract = desk.add_contract(self._persons, AMOUNT)
        return contract, desk.do("plan", contract, self._persons[1], 3, 3 * INSTALMENT)

    def _cheque(self, desk):
        """A cheque that pays two instalments; its receipts and its key."""
        contract, payments = self._plan(desk)
        self._sayad += 1
        *receipts, cheque = written(desk.do("pay", contract, self._persons[1], INSTALMENT, self._sayad, *payments[:2]))
        return receipts, cheque

    def received(self, desk):
        contract, payments = self._plan(desk)
        self._sayad += 1
        return "pay", contract, self._persons[1], INSTALMENT, self._sayad, *payments[:2]

    def made_void(self, desk):
        receipts, _ = self._cheque(desk)
        return "void", receipts[0], "mistyped"

    def bounced(self, desk):
        _, cheque = self._cheque(desk)
        written(desk.do("cheque", cheque, DEPOSITED))
        return "cheque", cheque, BOUNCED

    def taken_back(self, desk):
        _, cheque = self._cheque(desk)
        written(desk.do("cheque", cheque, DEPOSITED))
        written(desk.do("cheque", cheque, BOUNCED))
        return "back", cheque, "mistyped"


def written(value):
    check(not isinstance(value, str), f"it is written: {value}")
    return value


# All that the books keep of money, so that "nothing" is exactly that.
STATE = ("SELECT CONCAT_WS('/',(SELECT COUNT(*) FROM Receipts),(SELECT IFNULL(SUM(iStatus),0) FROM Receipts),(SELECT COUNT(*) FROM Cheques),"
         "(SELECT IFNULL(SUM(iState),0) FROM Cheques),(SELECT COUNT(*) FROM ChequeChanges),(SELECT IFNULL(SUM(iStatus),0) FROM ChequeChanges),"
         "(SELECT COUNT(*) FROM Documents),(SELECT COUNT(*) FROM Docs),(SELECT IFNULL(SUM(iStatus),0) FROM AutomobilPayments)) AS state")


def statements_of(office, wire, prepare):
    desk = office.desk(port=wire.port)
    command = prepare(desk)
    wire.obey(None)
    written(desk.do(*command))
    found = sum(counts(statement) for statement in wire.statements)
    desk.leave()
    return found


def kill_at(office, wire, prepare, number):
    wire.obey(None)
    desk = office.desk(port=wire.port)
    command = prepare(desk)
    before = office.database.value(STATE)

    def end():
        desk.process.kill()
        return Fate.CUT_BEFORE
    wire.obey(nth(number, lambda _: end(), counts=counts))
    try:
        answer = desk.ask(*command)
        raise AssertionError(f"statement {number} was never reached: {answer}")
    except DeskGone:
        desk.kill()
    statement = wire.statements[-1][:60]
    after = f"{command[0]}, killed before statement {number}, {statement}"
    office.check_books(after)
    # Nothing was committed before the last statement, COMMIT itself, was sent.
    check(office.database.value(STATE) == before, f"{after}: nothing of it is there")


def money_killed(office):
    office.open_office()
    wire = office.wire()
    money = Money(office)
    kills = 0
    for work in (money.received, money.made_void, money.bounced, money.taken_back):
        statements = statements_of(office, wire, work)
        step(f"{work.__name__}: {statements} statements that are not reads")
        check(statements >= 5, "more than one row is written")
        for number in sorted(office.random.sample(range(1, statements + 1), min(office.rounds, statements))):
            kill_at(office, wire, work, number)
            kills += 1
    wire.close()
    return f"{kills} kills before a statement: nothing was left half done"


if __name__ == "__main__":
    # So many statements of each work, chosen at random.
    run(money_killed, __doc__, rounds=3)
