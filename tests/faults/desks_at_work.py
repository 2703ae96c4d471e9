#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Three desks add, change, archive and delete the same few contracts at once, and answer what they are asked as it comes."""

import collections
import random
import threading
import traceback

import rig
from rig.fault import check, run, step

DESKS = 3
CONTRACTS = 4
UNEXPECTED = "خطایی پیش بینی نشده"
# Commands that were not listed any more when they were given are no fault of the desk.
GONE = "tzdesk:"


class Clerk(threading.Thread):
    def __init__(self, office, desk, persons, seed):
        super().__init__()
        self._office = office
        self._desk = desk
        self._persons = persons
        self._random = random.Random(seed)
        self.outcomes = collections.Counter()
        self.problem = None

    def run(self):
        try:
            self._desk.do("asking", "on")
            for number in range(self._office.rounds):
                self._work(number)
        except Exception:  # noqa: BLE001 - reported by whoever started the clerk
            self.problem = traceback.format_exc()

    def _work(self, number):
        keys = [int(row["iID"]) for row in self._office.database.rows(
            "SELECT iID FROM AutomobilContracts WHERE iDocNum<>0 AND iArchiveUserID=0")]
        kind = self._random.choice(("edit",) * 6 + ("delete", "add", "archive"))
        if len(keys) < CONTRACTS:
            kind = "add"
        if kind == "add":
            self._fill(number)
        elif kind == "edit":
            self._edit(self._random.choice(keys), number)
        else:
            self._settle(kind, self._desk.ask(kind, self._random.choice(keys)))

    def _fill(self, number):
        self._desk.do("new", "contract", awaited="window")
        self._desk.do("parties", *self._persons)
        self._desk.do("set", "dAmount", self._random.randint(1, 300) * 1_000_000)
        self._desk.do("vehicle")
        self._desk.do("set", "sExplain", f"new {number}")
        self._settle("add", self._desk.ask("save"))

    def _edit(self, key, number):
        answer = self._desk.ask("edit", "contract", key)
        if answer["is"] != "window":
            # Deleted by another since the list was read.
            self._settle("edit", answer)
            return
        if answer["window"]["class"] != "CDlgAddAutomobilContract":
            raise AssertionError(f"an unknown window: {answer}")
        if self._random.random() < 0.6:
            self._desk.do("set", "dAmount", self._random.randint(1, 300) * 1_000_000)
        self._desk.do("set", self._random.choice(("sExplain", "sDesc", "sDeal")), f"{number}")
        self._settle("edit", self._desk.ask("save"))

    def _settle(self, kind, answer):
        """Whatever is asked is answered, until the window is closed."""
        asked = 0
        while True:
            if any(UNEXPECTED in said for said in answer["said"]):
                raise AssertionError(f"an error that nobody knows: {answer}")
            if answer["is"] in ("closed", "done"):
                self.outcomes[f"{kind} {answer['is']} {answer.get('value') not in (False, 0, None)}"] += 1
                return
            if answer["is"] == "failed":
                if GONE not in answer["text"]:
                    raise AssertionError(f"a command failed: {answer}")
                self.outcomes[f"{kind} not listed"] += 1
                return
            asked += 1
            if asked > 30:
                raise AssertionError(f"it is asked without end: {answer}")
            if answer["is"] == "window":
                check(answer["window"]["class"] == rig.CONFLICT, f"an unknown window: {answer}")
                button = self._random.choice(list(rig.CONFLICT_BUTTONS))
                self.outcomes[f"conflict {button}"] += 1
                answer = self._desk.ask("press", rig.CONFLICT_BUTTONS[button])
            elif answer["is"] == "question":
                answer = self._desk.ask("answer", "yes")
            else:
                self.outcomes[f"{kind} kept"] += 1
                answer = self._desk.ask("cancel")


def desks_at_work(office):
    office.open_office()
    persons = office.persons()
    desks = [office.desk() for _ in range(DESKS)]
    for _ in range(CONTRACTS):
        desks[0].add_contract(persons, 10_000_000)
    clerks = [Clerk(office, desk, persons, office.random.random()) for desk in desks]
    for clerk in clerks:
        clerk.start()
    for clerk in clerks:
        clerk.join()
    outcomes = sum((clerk.outcomes for clerk in clerks), collections.Counter())
    step(", ".join(f"{what} {count}" for what, count in sorted(outcomes.items())))
    problems = [clerk.problem for clerk in clerks if clerk.problem]
    check(not problems, "\n".join(problems))
    office.check_books("the end")
    conflicts = sum(count for what, count in outcomes.items() if what.startswith("conflict"))
    return f"{DESKS * office.rounds} commands, {conflicts} conflicts asked, books whole"


if __name__ == "__main__":
    run(desks_at_work, __doc__, rounds=12)
