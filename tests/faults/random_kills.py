#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desk at work is killed at any statement: what it had acknowledged stands, and the books are whole."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.desk import DeskGone
from rig.fault import check, run, step
from rig.wire import Fate, nth

MOST_STATEMENTS = 160


class Acknowledged:
    """What the desk said was done."""

    def __init__(self):
        self.texts = {}  # of contracts, by key
        self.deleted = set()
        self.receipts = set()
        self.uncertain = set()  # keys that a command was about when the desk was killed


class Work:
    """Commands of one desk, chosen at random, until it is killed."""

    def __init__(self, office, known):
        self._office = office
        self._known = known
        self._persons = office.persons()
        self._count = 0
        self.done = 0

    def until_killed(self, desk):
        random = self._office.random
        while True:
            self._count += 1
            living = sorted(self._known.texts)
            work = random.choice((self._add, self._edit, self._edit, self._delete, self._receive, self._sum_up)) if living else self._add
            work(desk, random.choice(living) if living else None)
            self.done += 1

    def _add(self, desk, _):
        text = f"new {self._count}"
        key = desk.add_contract(self._persons, 1_000_000 * self._office.random.randint(1, 400), text)
        self._known.texts[key] = text

    def _edit(self, desk, key):
        text = f"edit {self._count}"
        desk.open(key)
        if self._office.random.random() < 0.5:
            desk.do("set", "dAmount", 1_000_000 * self._office.random.randint(1, 400))
        desk.do("set", "sExplain", text)
        self._known.uncertain.add(key)
        desk.do("save", awaited="closed")
        self._known.uncertain.discard(key)
        self._known.texts[key] = text

    def _delete(self, desk, key):
        self._known.uncertain.add(key)
        desk.do("delete", key)
        self._known.uncertain.discard(key)
        del self._known.texts[key]
        self._known.deleted.add(key)

    def _receive(self, desk, _):
        text = f"receipt {self._count}"
        desk.do("receive", self._persons[0], self._office.random.randint(1, 1000), text)
        self._known.receipts.add(text)

    def _sum_up(self, desk, _):
        desk.do("sum", "up")


def stands(office, known, after):
    """Everything acknowledged is there. What was under way may be or not, and is known from here on as it is."""
    stored = {int(row["iID"]): row["sExplain"] for row in office.database.rows("SELECT iID, sExplain FROM AutomobilContracts")}
    for key in known.uncertain:
        known.texts.pop(key, None)
        if key in stored:
            known.texts[key] = stored[key]
    known.uncertain.clear()
    for key, text in known.texts.items():
        check(stored.get(key) == text, f"{after}: contract {key} is {stored.get(key)!r}, acknowledged {text!r}")
    check(not known.deleted & stored.keys(), f"{after}: deleted ones are back: {known.deleted & stored.keys()}")
    receipts = [row["sDesc"] for row in office.database.rows("SELECT sDesc FROM Receipts")]
    check(len(receipts) == len(set(receipts)), f"{after}: a receipt is there twice")
    check(known.receipts <= set(receipts), f"{after}: receipts are gone: {known.receipts - set(receipts)}")


def random_kills(office):
    office.open_office()
    wire = office.wire()
    known = Acknowledged()
    work = Work(office, known)
    for number in range(1, office.rounds + 1):
        desk = office.desk(port=wire.port)

        def end(_, desk=desk):
            desk.process.kill()
            return office.random.choice((Fate.CUT_BEFORE, Fate.CUT_AFTER))
        at = office.random.randint(1, MOST_STATEMENTS)
        wire.obey(nth(at, end))
        try:
            work.until_killed(desk)
        except DeskGone:
            desk.kill()
        after = f"kill {number}, at statement {at}: {wire.statements[-1][:60]}"
        wire.obey(None)
        office.check_books(after)
        stands(office, known, after)
    office.desk().do("list")
    left = office.database.number("SELECT COUNT(*) FROM AutomobilContracts WHERE iDocNum=0")
    check(left == 0, f"{left} contracts that were begun are left behind")
    step(f"{work.done} commands acknowledged")
    wire.close()
    return f"{work.done} commands acknowledged in {office.rounds} kills, all of them stand; books whole after each kill"


if __name__ == "__main__":
    run(random_kills, __doc__, rounds=12)
