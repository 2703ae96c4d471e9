#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Several desks change a few rows as fast as they can: the sum of what was acknowledged is what the tables hold."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step

DESKS = 3
# Each in its own, that nobody else writes.
TEXTS = ("sDeal", "sDesc", "sExplain")
# In what each counts, so that the sum tells how often each did.
STEPS = (1, 100_000, 10_000_000_000)


def all_at_once(desks, commands, seconds):
    for desk, command in zip(desks, commands, strict=True):
        desk.tell(*command)
    answers = [desk.hear(seconds) for desk in desks]
    check(all(answer["is"] == "done" for answer in answers), f"no error but the known ones: {answers}")
    return [answer["value"] for answer in answers]


def sums(office, desks, keys, times):
    """The rows in another order at each desk, so that they meet in deadlocks."""
    orders = [keys[turn:] + keys[:turn] for turn in range(len(desks))]
    counts = all_at_once(desks, [("add", "dDamageAmount", times, *order) for order in orders], 30 + times)
    saved = sum(count["saved"] for count in counts)
    for key in keys:
        stored = office.database.number(f"SELECT dDamageAmount FROM AutomobilContracts WHERE iID={key}")
        check(stored == saved, f"{stored} in the table, {saved} acknowledged: {counts}")
    return saved, sum(count["conflicts"] for count in counts)


def merges(office, desks, key, times):
    counts = all_at_once(desks, [("merge", column, size, times, key) for column, size in zip(TEXTS, STEPS, strict=True)], 30 + times)
    stored = office.database.row(f"SELECT dCostsForBuyer, {','.join(TEXTS)} FROM AutomobilContracts WHERE iID={key}")
    saved = sum(count["saved"] for count in counts)
    wanted = sum(count["saved"] * size for count, size in zip(counts, STEPS, strict=True))
    check(float(stored["dCostsForBuyer"]) == wanted, f"{stored['dCostsForBuyer']} in the table, {wanted} acknowledged: {counts}")
    for column in TEXTS:
        check(stored[column] == str(times), f"the last text of each desk stands: {stored}")
    return saved, sum(count["conflicts"] for count in counts)


def conflicts(office):
    office.open_office()
    desks = [office.desk() for _ in range(DESKS)]
    persons = office.persons()
    keys = [desks[0].add_contract(persons, 10_000_000) for _ in range(DESKS)]
    times = office.rounds
    added, given_up = sums(office, desks, keys, times)
    step(f"{added} units over {len(keys)} rows each, {given_up} gave up after their replays")
    merged, met = merges(office, desks, keys[0], times)
    step(f"{merged} merges, {met} met the change of another desk and began anew")
    office.check_books("the end")
    check(met > 0, "the desks met")
    return f"{added} units and {merged} merges acknowledged, as many in the tables; {met} conflicts told, {given_up} given up"


if __name__ == "__main__":
    run(conflicts, __doc__, rounds=40)
