#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A contract that is begun and not saved is seen by nobody; that of a killed program goes, that of a living one stays."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step


def contracts(office):
    return {int(row["iID"]) for row in office.database.rows("SELECT iID FROM AutomobilContracts")}


def placeholders(office):
    office.open_office()
    looking, working = office.desk(), office.desk()
    persons = office.persons()
    saved = looking.add_contract(persons, 100_000_000)
    check(looking.do("list") == [saved], "the contract that was saved is listed")
    working.do("new", "contract", awaited="window")
    living = (contracts(office) - {saved}).pop()
    check(looking.do("list") == [saved], "one that is begun is not listed")

    step(f"{office.rounds} programs are killed at a new contract")
    for number in range(1, office.rounds + 1):
        dying = office.desk()
        dying.do("new", "contract", awaited="window")
        if number % 2:
            dying.do("set", "dAmount", 5_000_000)
        dying.kill()
        check(looking.do("list") == [saved], f"kill {number}: invisible at once")
    looking.leave()
    office.desk().do("list")
    check(contracts(office) == {saved, living}, f"left behind: {contracts(office) - {saved, living}}")
    office.check_books("the next list opening")

    step("the living one is saved")
    working.do("parties", *persons)
    working.do("set", "dAmount", 70_000_000)
    working.do("vehicle")
    check(working.do("save", awaited="closed") == living, "it is saved as itself")
    looking = office.desk()
    check(sorted(looking.do("list")) == [saved, living], "and listed from now on")
    check(office.database.number("SELECT COUNT(*) FROM Placeholders") == 0, "nothing is begun any more")
    office.check_books("saved")
    return "never listed, gone after a kill, kept while its program lives"


if __name__ == "__main__":
    run(placeholders, __doc__, rounds=5)
