#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A user who may not open contracts, cars or demands sees no page; one who may only read changes nothing in them."""

from lib import car_labels, labels, rights
from lib.journey import check, run, step
from lib.waiting import wait_for


def few_rights(office):
    office.start()
    step("no right at all: no page")
    office.log_in(rights.NOBODY, rights.PASSWORD)
    for page in (labels.CONTRACTS, car_labels.CARS, car_labels.DEMANDS):
        refused_page(office, page, ("no-access", "Without the right the page does not open"))

    step("the right to read: the page, and nothing more")
    rights.change_user(office, rights.READER, rights.PASSWORD)
    table = office.open_contracts()
    wait_for(lambda: table.row_count == 1, "the contract in the list")
    refused_page(office, car_labels.CARS, ("no-cars", "The right to contracts is none to the cars"))
    before = contracts(office)
    office.command(labels.NEW)
    office.message(labels.WARNING, labels.NOT_ALLOWED, picture=("cannot-add", "Who may only read cannot add"))
    for command in (labels.EDIT, labels.DELETE, labels.ARCHIVE):
        office.driver.select_row(table, 0)
        office.command(command)
        office.message(labels.WARNING, labels.NOT_ALLOWED)
    check(contracts(office) == before, "nothing has changed in the table")

    step("but a contract may be looked at")
    office.driver.select_row(table, 0)
    office.command(labels.SHOW)
    window = office.tree.window(labels.EDITOR_SHOW)
    check(not office.tree.shows("push button", labels.OK, window), "a shown contract cannot be saved")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(labels.EDITOR_SHOW)
    office.leave()


def refused_page(office, page, picture):
    office.driver.open_menu(labels.AUTO_MENU, office.main)
    office.driver.menu_entry(page, office.main)
    office.message(labels.WARNING, labels.NOT_ALLOWED, picture=picture)
    check(not office.tree.shows("tree", page, office.main), f"the page {page!r} is not shown")
    check(not office.tree.shows("page tab", page, office.main), "no tab is left behind")


def contracts(office):
    return office.database.rows("SELECT * FROM AutomobilContracts ORDER BY iID")


if __name__ == "__main__":
    run(few_rights, __doc__)
