#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The wire breaks at COMMIT: whether it was saved is said right, and a second try does not save twice."""

import rig
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


def unknown(books, desk, wire, persons, look, text):
    """No server answers after the break. look: the user looks until it is known; otherwise the window is left open."""
    wire.obey(None)
    desk.fill_new(persons, 65_000_000, text)
    desk.do("asking", "on")
    wire.obey(at_commit(Fate.CUT_AFTER))
    wire.unplug()
    answer = desk.ask("save")
    check(answer["is"] == "question" and rig.UNKNOWN in answer["text"], f"that it is not known is said: {answer}")
    if look:
        desk.do("answer", "yes", awaited="question")
        wire.unplug(False)
        desk.do("answer", "yes", awaited="closed")
    else:
        answer = desk.ask("answer", "no")
        check(answer["is"] == "kept", f"the window stays: {answer}")
        wire.unplug(False)
        answer = desk.ask("save")
        check(answer["said"], f"a second try is told that it was saved: {answer}")
        if answer["is"] == "kept":
            desk.do("cancel", awaited="question")
            desk.do("answer", "yes", awaited="closed")
    desk.do("asking", "off")
    check(books.contracts(text) == 1, f"saved once, not {books.contracts(text)} times")


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
        for look in (True, False):
            unknown(books, desk, wire, persons, look, f"unknown {look} {number}")
            office.check_books(f"round {number}, unknown")
    step(f"{office.rounds} rounds")
    wire.close()
    return "what was said was so, and everything was booked once"


if __name__ == "__main__":
    run(answer_lost, __doc__, rounds=3)
