#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A delete question that was left open deletes what it asked about or nothing: not the contract that got the document's number."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step


def question_left_open(office):
    office.open_office()
    asking, working = office.desk(), office.desk()
    persons = office.persons()
    key = working.add_contract(persons, 100_000_000)
    document = office.database.value(f"SELECT iDocNum FROM AutomobilContracts WHERE iID={key}")
    asking.do("asking", "on")
    asking.do("delete", key, awaited="question")
    step("meanwhile another deletes it, and its document's number is used again")
    working.do("delete", key)
    other = working.add_contract(persons, 200_000_000)
    check(office.database.value(f"SELECT iDocNum FROM AutomobilContracts WHERE iID={other}") == document,
          "the number was used again")
    answer = asking.ask("answer", "yes")
    office.check_books("the question was answered with yes")
    check(office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE iID={other}") == 1, "the other one stays")
    check(answer["said"], "it is told that the contract was gone")
    check(not answer["value"], "the row leaves the list")

    step("meanwhile another archives it")
    asking.do("asking", "off")
    third = working.add_contract(persons, 300_000_000)
    asking.do("asking", "on")
    asking.do("delete", third, awaited="question")
    working.do("archive", third)
    answer = asking.ask("answer", "yes")
    check(office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE iID={third}") == 1,
          "an archived contract is not deleted by a question from before")
    check(answer["said"], "and that is told")
    office.check_books("archived meanwhile")
    return "only what the question was about, or nothing"


if __name__ == "__main__":
    run(question_left_open, __doc__)
