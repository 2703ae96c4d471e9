#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two desks receive one instalment at once, and OK is pressed twice: one receipt, one contract."""

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step

RECEIVE = "دريافت قسط"
BACK = "بازگشت"


def instalment(office, desk, persons):
    """A contract with a plan of one instalment; their keys."""
    contract = desk.add_contract(persons, 90_000_000)
    payment = office.database.value(
        f"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,date,dAmount,iMonths,iLevel,iDepartmentID) "
        f"VALUES ({contract},{persons[1]},1,NOW(),1000,1,2,1) RETURNING iID")
    return contract, payment


def open_receipt(desk, contract, person):
    desk.do("instalments", contract, person, awaited="window")
    desk.do("row", 0)
    desk.do("press", RECEIVE, awaited="window")


def at_once(office, desks, persons, number):
    contract, payment = instalment(office, desks[0], persons)
    for desk in desks:
        open_receipt(desk, contract, persons[1])
    for desk in desks:
        desk.tell("save")
    answers = [desk.hear() for desk in desks]
    receipts = office.database.number("SELECT COUNT(*) FROM Receipts WHERE sDesc LIKE 'بابت قسط%'")
    check(receipts == number, f"round {number}: {receipts} receipts; {answers}")
    check(office.database.number(f"SELECT iStatus FROM AutomobilPayments WHERE iID={payment}") == 1, "it is marked as paid")
    check(any(answer["said"] for answer in answers), f"the other desk is told: {answers}")
    office.check_books(f"round {number}")
    for desk in desks:
        while desk.do("window").get("class"):
            desk.ask("cancel")


def received_money_keeps_the_contract(office, desk, number):
    contract = office.database.value("SELECT MAX(iAutomobilContractID) FROM AutomobilPayments WHERE iStatus=1")
    # The refusal offers the window in which receipts are made void.
    answer = desk.ask("delete", contract)
    check(answer["is"] == "window" and "1,000" in " ".join(answer["said"]), f"the deletion is refused, with the sum: {answer}")
    check(desk.do("press", BACK) is True, "the contract is still listed")
    left = office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts c JOIN AutomobilPayments p "
                                  f"ON p.iAutomobilContractID=c.iID WHERE c.iID={contract}")
    check(left == 1, f"round {number}: contract and plan stay")


def pressed_twice(office, desk, persons, number):
    desk.fill_new(persons, 80_000_000, f"twice {number}")
    desk.do("save", "twice", awaited="closed")
    saved = office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE sExplain='twice {number}'")
    check(saved == 1, f"pressed twice: {saved} contracts")
    contract, payment = instalment(office, desk, persons)
    before = office.database.number("SELECT COUNT(*) FROM Receipts")
    open_receipt(desk, contract, persons[1])
    desk.ask("save", "twice")
    check(office.database.number("SELECT COUNT(*) FROM Receipts") == before + 1, "pressed twice: one receipt")
    while desk.do("window").get("class"):
        desk.ask("cancel")
    office.check_books("pressed twice")


def received_once(office):
    office.open_office()
    desks = [office.desk(), office.desk()]
    persons = office.persons()
    for number in range(1, office.rounds + 1):
        at_once(office, desks, persons, number)
        received_money_keeps_the_contract(office, desks[0], number)
    step("pressed twice")
    for number in range(1, office.rounds + 1):
        pressed_twice(office, desks[0], persons, number)
    return "one receipt, one contract, and the other desk was told"


if __name__ == "__main__":
    run(received_once, __doc__, rounds=4)
