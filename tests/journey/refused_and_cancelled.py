#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A save with the same person on both sides is refused and loses nothing; a new contract given up leaves no row."""

from lib import labels, work
from lib.journey import check, run, step
from lib.waiting import wait_for
from prepare_office import PERSONS

EXPLANATION = "نباید گم شود"
AMOUNT = 900_000_000


def refused_and_cancelled(office):
    office.start()
    office.log_in()
    table = office.open_contracts()
    before = contracts(office)

    step("refused: no amount")
    editor = work.new_contract(office)
    check(len(contracts(office)) == len(before) + 1, "the new contract's placeholder stands in the table")
    office.driver.press(labels.OK, editor)
    office.message(labels.WARNING, labels.NO_AMOUNT)

    step("refused: the same person on both sides")
    for side in (0, 1):
        work.pick_person(office, editor, work.party(side), PERSONS[0], PERSONS[0].split(" ")[1])
    office.driver.enter(labels.AMOUNT, str(AMOUNT), editor)
    office.driver.enter(labels.EXPLANATION, EXPLANATION, editor)
    figures = work.check_figures(office, editor, AMOUNT, (0, 0))
    office.driver.press(labels.OK, editor)
    office.message(labels.WARNING, labels.SAME_PERSON, picture=("refused", "The same person on both sides is refused"))
    check(editor in office.tree.windows(), "the window stays open")
    shown = {label: office.tree.find("text", label, editor).text for label in
             (labels.AMOUNT, labels.EXPLANATION, *(labels.PERSON + side for side in labels.SIDES))}
    check(shown[labels.EXPLANATION] == EXPLANATION, f"what was typed stays: {shown}")
    check(office.tree.find("text", labels.AMOUNT, editor).number == AMOUNT, f"the amount stays: {shown}")
    check(all(shown[labels.PERSON + side] == PERSONS[0] for side in labels.SIDES), f"the persons stay: {shown}")
    work.check_figures(office, editor, AMOUNT, (0, 0))
    check(figures.commission > 0, "there are figures to keep")
    office.pictures.take("kept", "The window keeps everything that was typed")
    check(office.database.number("SELECT COUNT(*) FROM Documents") == 1, "a refused save posts no document")

    step("cancelled: no row is left")
    office.driver.press(labels.CANCEL, editor)
    office.tree.no_window(labels.EDITOR_NEW)
    wait_for(lambda: contracts(office) == before, "the table to be as it was")
    check(table.row_count == len(before), "the list is as it was")

    step("cancelled with the Escape key as well")
    editor = work.new_contract(office)
    check(len(contracts(office)) == len(before) + 1, "the placeholder stands in the table")
    office.driver.keys(editor, "Escape")
    office.tree.no_window(labels.EDITOR_NEW)
    wait_for(lambda: contracts(office) == before, "the table to be as it was after Escape")
    office.leave()


def contracts(office):
    return office.database.rows("SELECT iID, iCode, dAmount, iStatus FROM AutomobilContracts ORDER BY iID")


if __name__ == "__main__":
    run(refused_and_cancelled, __doc__)
