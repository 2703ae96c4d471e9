#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two clerks at two programs on one server: what one does the other sees, and neither undoes the other's work."""

import os

from lib import labels, sound_books, work
from lib.journey import check, run, step
from lib.server import Server
from lib.waiting import wait_for

from prepare_office import PERSONS

CONFLICT = "تغییر هم‌زمان"
OURS = "تغییر من بماند"
FIRST_TEXT = "رنگ سقف دارد"
SECOND_TEXT = "بیمه تا پایان سال"
THIRD_TEXT = "کارت خودرو گم شده است"
AMOUNT = 500_000_000


def two_programs(alone):
    server = Server(alone.desktop.processes, os.path.join(alone.desktop.home, "server"))
    server.create()
    one = alone.another_desk("desk-1", server)
    two = alone.another_desk("desk-2", server)
    try:
        play(one, two)
    finally:
        one.close()
        two.close()


def play(one, two):
    step("the first program makes the office, the second one finds it made")
    one.start()
    one.set_up()
    one.log_in()
    two.start()
    two.log_in()

    step("a contract of the first is in the list of the second")
    mine = one.open_contracts()
    add_contract(one)
    theirs = two.open_contracts()
    wait_for(lambda: theirs.row_count == 1, "the contract at the other desk")

    step("both write into one field: the second to save is asked")
    editor = open_contract(one, mine)
    other = open_contract(two, theirs)
    one.driver.enter(labels.EXPLANATION, FIRST_TEXT, editor)
    two.driver.enter(labels.EXPLANATION, SECOND_TEXT, other)
    save(one, editor)
    two.driver.press(labels.OK, other)
    question = two.tree.window(CONFLICT)
    shown = [node.name for node in question.shown_descendants()]
    check(any(FIRST_TEXT in name for name in shown), "the question shows what the other desk wrote")
    check(any(SECOND_TEXT in name for name in shown), "the question shows what this desk wrote")
    two.driver.ready(question)
    two.pictures.take("conflict", "Two desks wrote into one field")
    two.driver.press(OURS, question)
    two.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    two.tree.no_window(labels.EDITOR_EDIT)
    check(one.database.value("SELECT sExplain FROM AutomobilContracts") == SECOND_TEXT, "what was chosen is stored")

    step("one deletes what the other has open: nothing comes back unasked")
    editor = open_contract(one, mine)
    two.driver.select_row(theirs, 0)
    two.command(labels.DELETE)
    two.message(labels.QUESTION, labels.ASK_DELETE, labels.YES)
    wait_for(lambda: theirs.row_count == 0, "the row to go")
    one.driver.enter(labels.EXPLANATION, THIRD_TEXT, editor)
    one.driver.press(labels.OK, editor)
    one.message(labels.QUESTION, "حذف کرده است", labels.NO, picture=("gone", "The other desk deleted the contract"))
    one.driver.press(labels.CANCEL, editor)
    one.tree.no_window(labels.EDITOR_EDIT)
    check(one.database.number("SELECT COUNT(*) FROM AutomobilContracts") == 0, "the contract stays deleted")
    sound_books.check(one.database)

    step("closed and opened again")
    add_contract(one)
    one.leave()
    two.leave()
    two.start()
    two.log_in()
    theirs = two.open_contracts()
    wait_for(lambda: theirs.row_count == 1, "the contract after a new start")
    sound_books.check(two.database)
    two.leave()


def add_contract(office):
    first = office.database.number("SELECT COUNT(*) FROM Persons") == 0
    if first:
        work.write_settings(office)
    editor = work.new_contract(office)
    for side, name in enumerate(PERSONS):
        if first:
            picker = work.open_picker(office, editor, work.party(side))
            office.driver.press(labels.NEW, picker)
            work.add_person(office, picker, *name.split(" "))
            work.confirm_picker(office, picker, office.tree.find("tree", labels.PERSONS, picker), editor, work.party(side), name)
        else:
            work.pick_person(office, editor, work.party(side), name, name.split(" ")[1])
    office.driver.enter(labels.AMOUNT, str(AMOUNT), editor)
    work.write_car(office, editor)
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(labels.EDITOR_NEW)


def open_contract(office, table):
    office.driver.select_row(table, 0)
    office.command(labels.EDIT)
    return office.tree.window(labels.EDITOR_EDIT)


def save(office, editor):
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(labels.EDITOR_EDIT)


if __name__ == "__main__":
    run(two_programs, __doc__)
