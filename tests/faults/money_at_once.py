#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two desks take, make void and send on the same money at once: it is done once, and the other desk is told."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step

AMOUNT = 90_000_000
INSTALMENT = 1000
DEPOSITED = 1


def both(desks, *command):
    """What each of them is answered: a text is a refusal."""
    for desk in desks:
        desk.tell(*command)
    answers = [desk.hear() for desk in desks]
    check(all(answer["is"] == "done" for answer in answers), f"{command}: {answers}")
    return [answer["value"] for answer in answers]


def once(values, what):
    done = [value for value in values if not isinstance(value, str)]
    check(len(done) == 1, f"{what} is done once, and the other desk is told: {values}")
    return done[0]


def one_round(office, desks, persons, number):
    contract = desks[0].add_contract(persons, AMOUNT)
    payments = desks[0].do("plan", contract, persons[1], 3, 3 * INSTALMENT)
    sayad = 6_000_000_000_000_000 + number

    receipt = once(both(desks, "pay", contract, persons[1], INSTALMENT, "", payments[0]), "an instalment is received")[0]
    once(both(desks, "void", receipt, "mistyped"), "a receipt is made void")
    # The same Sayad number for two instalments: one cheque, and one of them is paid.
    for desk, payment in zip(desks, payments[1:], strict=True):
        desk.tell("pay", contract, persons[1], INSTALMENT, sayad, payment)
    _, cheque = once([desk.hear()["value"] for desk in desks], "a cheque is entered")
    once(both(desks, "cheque", cheque, DEPOSITED), "a cheque is deposited")
    once(both(desks, "back", cheque, "mistyped"), "a step is taken back")
    office.check_books(f"round {number}")
    paid = office.database.number(f"SELECT SUM(iStatus) FROM AutomobilPayments WHERE iAutomobilContractID={contract}")
    check(paid == 1, f"round {number}: {paid} instalments are paid")


def money_at_once(office):
    office.open_office()
    desks = [office.desk(), office.desk()]
    persons = office.persons()
    for number in range(1, office.rounds + 1):
        one_round(office, desks, persons, number)
    step("rounds done")
    told = 5 * office.rounds
    return f"each of {told} works was done once, and the other desk was told {told} times"


if __name__ == "__main__":
    run(money_at_once, __doc__, rounds=4)
