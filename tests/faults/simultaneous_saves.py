#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two desks save other figures of one contract at the same moment: one of them is asked, and contract and document agree."""

import rig
from rig.fault import check, run, step


def save_at_once(desks):
    for desk in desks:
        desk.tell("save")
    return [desk.hear() for desk in desks]


def simultaneous_saves(office):
    office.open_office()
    desks = [office.desk(), office.desk()]
    persons = office.persons()
    key = desks[0].add_contract(persons, 100_000_000)
    asked = 0
    for number in range(1, office.rounds + 1):
        amounts = [number * 10_000_000, number * 10_000_000 + 1_000_000]
        for desk, amount in zip(desks, amounts, strict=True):
            desk.open(key)
            desk.do("set", "dAmount", amount)
        answers = save_at_once(desks)
        office.check_books(f"round {number}, {amounts}")
        kinds = sorted(answer["is"] for answer in answers)
        check(kinds == ["closed", "window"], f"one saves, the other is asked: {answers}")
        winner = next(desk for desk, answer in enumerate(answers) if answer["is"] == "closed")
        question = answers[1 - winner]
        check(rig.CONFLICT == question["window"]["class"], f"the window of the conflict, not {question}")
        asked += 1
        desks[1 - winner].do("cancel", awaited="kept")
        desks[1 - winner].do("cancel", awaited="closed")
        stored = office.database.number(f"SELECT dAmount FROM AutomobilContracts WHERE iID={key}")
        check(stored == amounts[winner], f"round {number}: {stored} is what the winner saved")
        office.check_books(f"round {number}")
    step(f"{office.rounds} rounds")
    return f"agreed every time, the loser asked {asked} times"


if __name__ == "__main__":
    run(simultaneous_saves, __doc__, rounds=8)
