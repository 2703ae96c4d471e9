#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the office that the shorter journeys start from: two persons, a contract, and two users with few rights."""

from lib import labels, rights, work
from lib.journey import run, step

PERSONS = ("سعید رضایی", "مریم کریمی")


def prepare(office):
    step("first start")
    office.start()
    office.set_up()
    office.log_in()
    step("a contract with two new persons")
    office.open_contracts()
    work.write_settings(office)
    editor = work.new_contract(office)
    for side, name in enumerate(PERSONS):
        picker = work.open_picker(office, editor, work.party(side))
        office.driver.press(labels.NEW, picker)
        work.add_person(office, picker, *name.split(" "))
        work.confirm_picker(office, picker, office.tree.find("tree", labels.PERSONS, picker), editor,
                            work.party(side), name)
    office.driver.enter(labels.AMOUNT, "500000000", editor)
    work.check_figures(office, editor, 500_000_000, (0, 0))
    work.write_car(office, editor)
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(labels.EDITOR_NEW)
    step("users with few rights")
    rights.add_user(office, rights.READER,
                    ((labels.CONTRACTS, labels.RIGHT_ACCESS), (labels.CONTRACTS, labels.RIGHT_READ)))
    rights.add_user(office, rights.NOBODY, ())
    office.leave()


if __name__ == "__main__":
    run(prepare, __doc__)
