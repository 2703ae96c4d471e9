#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""An open page comes back to the front instead of opening twice; typed work is asked about before it is dropped, also by leaving."""

from lib import car_labels, labels, work
from lib.drivers import TreeDriver
from lib.journey import check, run, step
from lib.waiting import wait_for

AMOUNT = 900_000_000
UNSAVED = "ذخیره نشده"


def unsaved_work(office):
    office.start()
    office.log_in()
    step("one page, however often it is opened")
    office.open_contracts()
    office.open_list(car_labels.DEMANDS)
    check(tabs(office) == [labels.START_PAGE, labels.CONTRACTS, car_labels.DEMANDS], f"each list has its tab: {tabs(office)}")
    office.open_contracts()
    check(tabs(office) == [labels.START_PAGE, labels.CONTRACTS, car_labels.DEMANDS], f"no second tab: {tabs(office)}")
    check(office.tree.shows("tree", labels.CONTRACTS, office.main), "the contracts are in front")
    office.driver.keys(office.main, "ctrl+6")
    office.tree.find("tree", car_labels.DEMANDS, office.main)
    office.driver.keys(office.main, "ctrl+shift+1")
    wait_for(lambda: tabs(office) == [labels.START_PAGE, labels.CONTRACTS, car_labels.DEMANDS, labels.CONTRACTS + " (2)"],
             lambda: f"another page with a number in its title: {tabs(office)}")
    office.pictures.take("pages", "Another page of a list is numbered")

    step("nothing typed: Escape asks nothing")
    before = contracts(office)
    editor = work.new_contract(office)
    office.driver.keys(editor, "Escape")
    office.tree.no_window(labels.EDITOR_NEW)

    step("something typed: Escape asks, and keeps the window")
    editor = work.new_contract(office)
    office.driver.enter(labels.AMOUNT, str(AMOUNT), editor)
    office.driver.keys(editor, "Escape")
    office.message(labels.QUESTION, UNSAVED, labels.NO, ("asked", "Escape asks before typed work is dropped"))
    check(editor in office.tree.windows(), "the window stays open")
    check(office.tree.find("text", labels.AMOUNT, editor).number == AMOUNT, "what was typed stays")

    step("dropped on purpose")
    office.driver.keys(editor, "Escape")
    office.message(labels.QUESTION, UNSAVED, labels.YES)
    office.tree.no_window(labels.EDITOR_NEW)
    wait_for(lambda: contracts(office) == before, "no row to be left")

    if isinstance(office.driver, TreeDriver):
        leave_past_the_editor(office, before)
    else:
        office.leave()


def leave_past_the_editor(office, before):
    """A screen reader's command reaches the menu although an editor is open."""
    step("leaving with an open editor asks as well")
    editor = work.new_contract(office)
    office.driver.enter(labels.AMOUNT, str(AMOUNT), editor)
    leave = next(node for node in office.main.descendants() if node.role == "menu item" and node.name == labels.LEAVE)
    leave.act("Press")
    office.message(labels.QUESTION, UNSAVED, labels.NO)
    check(editor in office.tree.windows(), "the window stays open, and the program with it")
    step("and ends the program when the work is dropped")
    leave.act("Press")
    question = office.tree.window(labels.QUESTION)
    check(contracts(office) != before, "the placeholder stands in the table until then")
    office.driver.press(labels.YES, question)
    office.wait_until_gone()


def tabs(office):
    return [node.name for node in office.main.shown_descendants() if node.role == "page tab" and node.showing]


def contracts(office):
    return office.database.rows("SELECT iID, iCode, dAmount, iStatus FROM AutomobilContracts ORDER BY iID")


if __name__ == "__main__":
    run(unsaved_work, __doc__)
