#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A typed decimal never multiplies an amount, and a party pays what the contract's document charges."""

from lib import labels, work
from lib.figures import same
from lib.journey import check, run, step
from lib.waiting import wait_for

from prepare_office import PERSONS

AMOUNT = 900_000_000
# The money unit of the office has no decimals.
TYPED = (f"{AMOUNT}.75", f"{AMOUNT}/25", "۹۰۰۰۰۰۰۰۰٫۵")
COMMISSION = 6_000_000
DISCOUNT_PERCENT = 10


def amounts(office):
    office.start()
    office.log_in()
    table = office.open_contracts()
    rows = table.row_count

    step("decimals are refused, not joined on")
    editor = work.new_contract(office)
    for text in TYPED:
        line = office.driver.enter(labels.AMOUNT, text, editor, taken=str(AMOUNT))
        check(labels.NO_DECIMALS in line.description, f"the line says why {text!r} is not taken whole: {line.description!r}")
    office.pictures.take("decimals", "Decimals that the money unit does not have are refused with a hint")
    work.check_figures(office, editor, AMOUNT, (0, 0))

    step("a commission typed beside a standing discount")
    for side, name in enumerate(PERSONS):
        work.pick_person(office, editor, work.party(side), name, name.split(" ")[1])
    office.driver.enter(labels.CONTRACT_DISCOUNT_PERCENT + labels.SIDES[1], str(DISCOUNT_PERCENT), editor)
    discount = work.check_figures(office, editor, AMOUNT, (0, DISCOUNT_PERCENT)).discounts[1]
    office.driver.enter(labels.COMMISSION, str(COMMISSION), editor)
    total = COMMISSION * (100 + work.SETTINGS.tax + work.SETTINGS.duty) / 100
    pays = office.tree.find("text", labels.PAYS + labels.SIDES[1], editor)
    wait_for(lambda: same(pays.number, total), lambda: f"the payment to be {total}, not {pays.text}")
    work.write_car(office, editor)

    step("the question, gone back from and answered")
    charged = total - discount
    for answer in (labels.CANCEL, labels.YES):
        office.driver.press(labels.OK, editor)
        question = office.message(labels.QUESTION, labels.TAKE_CHARGED, answer,
                                  picture=("question", "What the buyer pays is not what the document charges"))
        check(f"{total:,.0f}" in question and f"{charged:,.0f}" in question, f"both amounts are named: {question!r}")
        check(PERSONS[1] in question and PERSONS[0] not in question, f"only the buyer is asked about: {question!r}")
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(labels.EDITOR_NEW)
    wait_for(lambda: table.row_count == rows + 1, "the contract in the list")
    check_books(office, charged)
    office.leave()


def check_books(office, charged):
    contract = office.database.row("SELECT * FROM AutomobilContracts ORDER BY iID DESC LIMIT 1")
    check(same(float(contract["dAmount"]), AMOUNT), f"the amount is {contract['dAmount']}")
    check(same(float(contract["dPaySecond"]), charged), f"the buyer pays {contract['dPaySecond']}, not {charged}")
    owes = office.database.number("SELECT SUM(dBed)-SUM(dBes) FROM Docs "
                                  f"WHERE iDocNum={contract['iDocNum']} AND iPersonID={contract['iPersonSecondID']}")
    check(same(owes, charged), f"the document charges {owes}, not {charged}")


if __name__ == "__main__":
    run(amounts, __doc__)
