#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A void contract leaves the list; a right click deletes, but asks first, and No keeps the row."""

from lib import labels
from lib.drivers import MouseDriver
from lib.journey import check, run, step
from lib.waiting import wait_for


def void_and_delete(office):
    office.start()
    office.log_in()
    table = office.open_contracts()
    wait_for(lambda: table.row_count == 1, "the contract in the list")

    step("void: out of the list")
    document = office.database.row("SELECT iDocNum, iFiscalYear FROM AutomobilContracts")
    office.driver.select_row(table, 0)
    office.command(labels.EDIT)
    editor = office.tree.window(labels.EDITOR_EDIT)
    office.driver.check(labels.ACTIVE, editor, False)
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(labels.EDITOR_EDIT)
    wait_for(lambda: table.row_count == 0, "the void contract to leave the list")
    check(office.database.number("SELECT iStatus FROM AutomobilContracts") == 1, "the contract is void in the table")
    check(office.database.row("SELECT iDocNum, iFiscalYear FROM AutomobilContracts") == document,
          "an edited contract keeps its document number")

    step("seen with the inactive ones")
    office.driver.check(labels.SHOW_INACTIVE, office.main)
    office.command(labels.SEARCH)
    wait_for(lambda: table.row_count == 1, "the void contract among the inactive ones")

    step("a right click asks; No keeps the row")
    mouse = MouseDriver(office.tree, office.input)
    mouse.click(table.cell(0, 5))
    wait_for(lambda: table.selected_rows == [0], "the row to be selected")
    mouse.click(table.cell(0, 1), button=3)
    office.message(labels.QUESTION, labels.ASK_DELETE, labels.NO,
                   picture=("delete-asked", "A right click on a row asks whether to delete it"))
    check(office.database.number("SELECT COUNT(*) FROM AutomobilContracts") == 1, "No keeps the contract")
    check(table.row_count == 1, "No keeps the row")

    step("Yes deletes the contract with its document")
    # Elsewhere in the row, or the two quick clicks would count as a double click.
    mouse.click(table.cell(0, 3), button=3)
    office.message(labels.QUESTION, labels.ASK_DELETE, labels.YES)
    wait_for(lambda: table.row_count == 0, "the row to go")
    check(office.database.number("SELECT COUNT(*) FROM AutomobilContracts") == 0, "the contract is gone")
    rows = office.database.number("SELECT COUNT(*) FROM Docs WHERE iDocNum={iDocNum} AND iFiscalYear={iFiscalYear}"
                                  .format(**document))
    check(rows == 0, "the document's rows are gone with it")
    office.leave()


if __name__ == "__main__":
    run(void_and_delete, __doc__)
