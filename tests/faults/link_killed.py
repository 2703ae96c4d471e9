#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A contract that is made from a car is saved with its link and the car's sale, and parted from it, as a whole: a kill leaves all or nothing."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.desk import DeskGone
from rig.fault import check, run, step
from rig.wire import Fate, nth

AMOUNT = 70_000_000


def counts(statement):
    """Reading changes nothing, so a kill before it is a kill before the next that does."""
    return not statement.startswith("SELECT")


class Links:
    """What is done with a car and its contract. Each work is prepared, and then one command."""

    def __init__(self, office):
        self._office = office
        self._persons = office.persons()
        self.car = 0

    def saved(self, desk):
        """A contract of a car of its own, which is filled in and about to be saved."""
        self.car = desk.do("car", self._persons[0], AMOUNT)
        desk.do("new", "contract", awaited="window")
        check(desk.do("from", self.car), "the car is taken")
        desk.do("parties", *self._persons)
        desk.do("set", "dAmount", AMOUNT)
        desk.do("vehicle")
        return ("save",), "closed"

    def parted(self, desk):
        command, awaited = self.saved(desk)
        contract = desk.do(*command, awaited=awaited)
        return ("unlink", self.car, contract), "done"

    def state(self):
        """Contracts that are saved, links, and whether the car is sold."""
        row = self._office.database.row(
            "SELECT (SELECT COUNT(*) FROM AutomobilContracts c WHERE NOT EXISTS(SELECT 1 FROM Placeholders p "
            "WHERE p.sTable='AutomobilContracts' AND p.iRecordID=c.iID)) AS contracts, "
            f"(SELECT COUNT(*) FROM CarContracts WHERE iCarID={self.car}) AS links, "
            f"(SELECT bSold FROM AutomobilInformations WHERE iID={self.car}) AS sold")
        return tuple(int(row[name]) for name in ("contracts", "links", "sold"))


# What each work adds to the state once it is done.
DONE = {"saved": (1, 1, 1), "parted": (0, -1, 0)}


def outcome(before, work):
    return tuple(number + more for number, more in zip(before, DONE[work.__name__]))


def statements_of(office, wire, links, work):
    """How many of the command's statements are not reads."""
    desk = office.desk(port=wire.port)
    command, awaited = work(desk)
    before = links.state()
    wire.obey(None)
    desk.do(*command, awaited=awaited)
    found = sum(counts(statement) for statement in wire.statements)
    check(links.state() == outcome(before, work), f"{work.__name__} is done: {links.state()}")
    desk.leave()
    return found


def kill_at(office, wire, links, work, number):
    wire.obey(None)
    desk = office.desk(port=wire.port)
    command, _ = work(desk)
    before = links.state()

    def end():
        desk.process.kill()
        return Fate.CUT_BEFORE
    wire.obey(nth(number, lambda _: end(), counts=counts))
    try:
        answer = desk.ask(*command)
        raise AssertionError(f"statement {number} was never reached: {answer}")
    except DeskGone:
        desk.kill()
    after = f"{work.__name__}, killed before statement {number}, {wire.statements[-1][:60]}"
    office.check_books(after)
    now = links.state()
    check(now in (before, outcome(before, work)), f"{after}: all or nothing, and not {now} after {before}")
    return now == before


def link_killed(office):
    office.open_office()
    wire = office.wire()
    links = Links(office)
    kills = 0
    for work in (links.saved, links.parted):
        statements = statements_of(office, wire, links, work)
        step(f"{work.__name__}: {statements} statements that are not reads")
        check(statements >= 3, "more than one row is written")
        nothing = [kill_at(office, wire, links, work, number) for number in range(1, statements + 1)]
        check(nothing[0], "killed at first it is not done")
        kills += statements
    wire.close()
    return f"{kills} kills, one before each statement: contract, link and sale together or not at all"


if __name__ == "__main__":
    run(link_killed, __doc__)
