#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What is typed to find something is only looked for, in whatever way it is written; who may only look keeps the office's rates."""

from lib import car_labels, cars, catalog, labels, rights, work
from lib.journey import check, run, step
from lib.tree import filled_anew
from lib.waiting import wait_for

STORED = "سند كتبي ۲"
OTHER_WAYS = ("سند کتبی 2", "سندکتبی۲", "كتبي")
STATEMENTS = ("' UNION SELECT 1,sPasswordHash,0,sUser FROM Users#", "x%' OR 'a' LIKE 'a", "'; DELETE FROM Users; -- ", "\\", "🚗")
TAX = "SELECT GROUP_CONCAT(sValue ORDER BY sKey) FROM Properties WHERE sSection='AutomobilContracts'"


def typed_statements(office):
    office.start()
    office.log_in()
    step("a notary tariff, found in every way of writing its name")
    office.open_list(car_labels.CARS)
    editor = cars.new_car(office)
    work.open_page(office, editor, car_labels.SALE_PAGE)
    office.driver.press(car_labels.more(car_labels.NOTARY_COST), editor)
    window = office.tree.window(car_labels.TARIFFS)
    table = catalog.add_tariff(office, window, STORED, 1000, "x")
    for typed in OTHER_WAYS:
        with filled_anew(table, f"the search for {typed!r}"):
            search(office, window, typed)
        wait_for(lambda: catalog.names(table, car_labels.COLUMN_NAME) == [STORED], f"the tariff by {typed!r}")

    step("a typed statement finds nothing and does nothing")
    users = office.database.number("SELECT COUNT(*) FROM Users")
    for typed in STATEMENTS:
        search(office, window, typed)
        wait_for(lambda: table.row_count == 0, f"no tariff by {typed!r}")
        check(not any(node.name.startswith(labels.WARNING) for node in office.tree.windows()), f"{typed!r} brings no message")
        # So that the next search has rows to lose.
        search(office, window, STORED)
        wait_for(lambda: table.row_count == 1, "the tariff again")
    office.pictures.take("found", "Only the tariff itself is ever listed")
    check(office.database.number("SELECT COUNT(*) FROM Users") == users, "every user is there")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(car_labels.TARIFFS)
    office.driver.press(labels.CANCEL, editor)
    office.tree.no_window(car_labels.CAR_NEW)

    step("who may only look opens the settings and cannot save them")
    before = office.database.value(TAX)
    rights.change_user(office, rights.READER, rights.PASSWORD)
    office.open_contracts()
    office.command(labels.SETTINGS)
    dialog = office.tree.window(labels.SETTINGS)
    office.driver.enter(labels.TAX, "99", dialog)
    office.driver.press(labels.OK, dialog)
    office.message(labels.WARNING, labels.NOT_ALLOWED, picture=("rates-kept", "Who may only look cannot change the rates"))
    check(dialog in office.tree.windows(), "the dialog stays open")
    check(office.tree.find("text", labels.TAX, dialog).number == 99, "what was typed stays")
    check(office.database.value(TAX) == before, "the rates are as they were")
    office.driver.press(labels.CANCEL, dialog)
    office.tree.no_window(labels.SETTINGS)
    office.leave()


def search(office, window, typed):
    office.driver.enter(car_labels.NAME, typed, window)
    office.driver.press(labels.SEARCH, window)


if __name__ == "__main__":
    run(typed_statements, __doc__)
