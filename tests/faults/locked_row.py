#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A row that another desk holds: the save gives up after some seconds and says who holds it; nothing typed is lost."""

import time

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step

AT_MOST = 20.0


def locked_row(office):
    office.open_office()
    waiting, holding = office.desk(), office.desk(user=rig.OTHER_CLERK)
    key = waiting.add_contract(office.persons(), 100_000_000)
    for number in range(1, office.rounds + 1):
        text = f"typed {number}"
        waiting.open(key)
        waiting.do("set", "sExplain", text)
        holding.do("hold", key)
        began = time.monotonic()
        waiting.tell("save")
        answer = waiting.hear()
        while answer["is"] == "window":
            # The notice that says that the server is awaited; nobody gives up.
            answer = waiting.hear_again()
        took = time.monotonic() - began
        check(took < AT_MOST, f"an answer after {took:.1f} s")
        check(answer["is"] == "kept" and answer["said"], f"it is told, and the window stays: {answer}")
        check(rig.OTHER_CLERK in " ".join(answer["said"]), f"it names who holds the row: {answer['said']}")
        check(waiting.do("get", "sExplain") == text, "what was typed is still there")
        holding.do("let", "go")
        waiting.do("save", awaited="closed")
        check(office.database.value(f"SELECT sExplain FROM AutomobilContracts WHERE iID={key}") == text, "and is saved then")
        office.check_books(f"round {number}")
    step(f"{office.rounds} rounds, the last after {took:.1f} s")
    return f"an answer within {AT_MOST:g} s that names the holder"


if __name__ == "__main__":
    run(locked_row, __doc__, rounds=1)
