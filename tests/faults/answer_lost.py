#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The wire breaks at COMMIT: whether it was saved is said right, and a second try does not save twice."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step
from rig.wire import Fate, at_commit


class Books:
    def __init__(self, office):
        self._office = office

    def contracts(self, text):
        return self._office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE sExplain='{text}'")

    def receipts(self, text):
        return self._office.database.number(f"SELECT COUNT(*) FROM Receipts WHERE sDesc='{text}'")


def contract(books, desk, wire, persons, fate, text):
    """Saved with a broken answer, and again where it was said that nothing was saved."""
    wire.obey(None)
    desk.fill_new(persons, 60_000_000, text)
    wire.obey(at_commit(fate))
    answer = desk.ask("save")
    check(any(statement.startswith("COMMIT") for statement in wire.statements), "the save reached its COMMIT")
    if fate is Fate.CUT_AFTER:
        check(answer["is"] == "closed" and answer["value"], f"it was saved, and that is said: {answer}")
        check(books.contracts(text) == 1, "it was saved")
        return
    check(answer["is"] == "kept" and answer["said"], f"it was not saved, and that is said: {answer}")
    check(books.contracts(text) == 0, "it was not saved")
    desk.do("save", awaited="closed")
    check(books.contracts(text) == 1, "the second try saves it once")


def receipt(books, desk, wire, person, fate, text):
    wire.obey(at_commit(fate))
    answer = desk.ask("receive", person, 1000, text)
    if fate is Fate.CUT_AFTER:
        check(answer["is"] == "done", f"it was received, and that is said: {answer}")
    else:
        check(answer["is"] == "failed", f"it was not received, and that is said: {answer}")
        check(books.receipts(text) == 0, "nothing was received")
        wire.obey(None)
        desk.do("receive", person, 1000, text)
    check(books.receipts(text) == 1, f"received once: {books.receipts(text)}")


def answer_lost(office):
    office.open_office()
    wire = office.wire()
    persons = office.persons()
    books = Books(office)
    desk = office.desk(port=wire.port)
    for number in range(1, office.rounds + 1):
        for fate in (Fate.CUT_AFTER, Fate.CUT_BEFORE):
            contract(books, desk, wire, persons, fate, f"{fate.name} {number}")
            receipt(books, desk, wire, persons[0], fate, f"receipt {fate.name} {number}")
            office.check_books(f"round {number}, {fate.value}")
    step(f"{office.rounds} rounds")
    wire.close()
    return "what was said was so, and everything was booked once"


if __name__ == "__main__":
    run(answer_lost, __doc__, rounds=3)
