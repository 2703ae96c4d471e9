#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The server is killed at any statement of a save and comes back: what was said about the save is so, and it is saved once."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step
from rig.wire import Fate, nth


def changes(statement):
    return not statement.startswith("SELECT")


def saved(office, text):
    return office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE sExplain='{text}'")


def statements_of_a_save(desk, wire, persons):
    wire.obey(None)
    desk.fill_new(persons, 30_000_000, "counted")
    wire.obey(None)
    desk.do("save", awaited="closed")
    return sum(changes(statement) for statement in wire.statements)


def killed(office, fate):
    """The server, before the statement reaches it; or by after_answer, behind it."""
    if fate is Fate.CUT_BEFORE:
        office.server.kill()
    return fate


def outcome(office, desk):
    """Of a save under way while the server went; it runs again when this returns."""
    answer = desk.hear()
    office.server.start()
    while answer["is"] == "question":
        # It is not known as long as no server answers: looked at again, it is.
        answer = desk.ask("answer", "yes")
    return answer


def server_killed(office):
    office.open_office()
    wire = office.wire()
    wire.after_answer = office.server.kill
    persons = office.persons()
    desk = office.desk(port=wire.port)
    desk.do("asking", "on")
    most = statements_of_a_save(desk, wire, persons)
    step(f"a save has {most} statements that are not reads")
    said = {"closed": 0, "kept": 0}
    for number in range(1, office.rounds + 1):
        text = f"round {number}"
        wire.obey(None)
        desk.fill_new(persons, 40_000_000, text)
        # From the COMMIT backwards; the COMMIT itself twice, without and with it on the disk.
        at = most - (number - 1) // 2 % most
        fate = Fate.CUT_AFTER if number % 2 else Fate.CUT_BEFORE
        wire.obey(nth(at, lambda _, fate=fate: killed(office, fate), counts=changes))
        desk.tell("save")
        answer = outcome(office, desk)
        after = f"killed at statement {at}, {fate.name}"
        check(answer["is"] in said, f"{after}: {answer}")
        said[answer["is"]] += 1
        check(saved(office, text) == (1 if answer["is"] == "closed" else 0), f"{after}: said {answer}, saved {saved(office, text)}")
        if answer["is"] == "kept":
            wire.obey(None)
            desk.do("save", awaited="closed")
        check(saved(office, text) == 1, f"{after}: saved once in the end, not {saved(office, text)}")
        office.check_books(after)
    wire.close()
    return f"said saved {said['closed']}, not saved {said['kept']} times, and so it was; saved once in the end"


if __name__ == "__main__":
    run(server_killed, __doc__, rounds=4)
