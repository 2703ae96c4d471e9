#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""By the keyboard alone: the rows of a list are narrowed while one types, and a filter is kept, asked for again, renamed and deleted."""

from lib import labels, work
from lib.journey import check, run, step
from lib.waiting import wait_for

QUICK = "پالایش سریع در فهرست"
FILTERS = "فیلترها"
SAVE = "ذخیره فیلتر"
KEPT = "فیلترهای ذخیره شده"
NAME = "نام فیلتر :"
DESCRIPTION = "توضيحات :"
FIRST = "بیعانه"
SECOND = "بیعانه‌ها"


def saved_filter(office):
    office.start()
    office.log_in()
    table = office.open_contracts()
    wait_for(lambda: table.row_count == 1, "the contract in the list")
    driver = office.driver
    driver.select_row(table, 0)

    step("words that no row has leave none in sight, Escape brings all back")
    driver.keys(office.main, "ctrl+f")
    quick = office.tree.find("text", QUICK, office.main)
    wait_for(lambda: quick.focused, "Ctrl+F to reach the quick filter")
    office.input.type("xyz")
    wait_for(lambda: table.row_count == 0, "no row in sight")
    office.pictures.take("narrowed", "The quick filter leaves what holds its words")
    driver.keys(office.main, "Escape")
    wait_for(lambda: table.row_count == 1, "all rows in sight")

    step("from there Ctrl+F reaches the filter, which is kept under a name")
    driver.keys(office.main, "ctrl+f")
    wait_for(lambda: driver.entry(DESCRIPTION, office.main).focused, "the filter's own field")
    office.input.type("xyz")
    from_menu(office, SAVE + " ...")
    window = office.tree.window(SAVE)
    driver.enter(NAME, FIRST, window)
    driver.keys(window, "ctrl+Return")
    office.tree.no_window(SAVE)
    check(stored(office) == FIRST, "the filter is kept")

    step("asked for again")
    driver.enter(DESCRIPTION, "", office.main)
    driver.keys(office.main, "F5")
    wait_for(lambda: table.row_count == 1, "the contract without a filter")
    from_menu(office, FIRST, ("menu", "Filters that are kept stand in a menu"))
    wait_for(lambda: table.row_count == 0, "the rows that the filter asks for")
    check(driver.entry(DESCRIPTION, office.main).text == "xyz", "the filter shows what it asks")

    step("renamed and deleted")
    from_menu(office, KEPT + " ...")
    window = office.tree.window(KEPT)
    driver.keys(window, "F2")
    rename = office.tree.window("تغییر نام فیلتر")
    driver.enter(NAME, SECOND, rename)
    driver.keys(rename, "ctrl+Return")
    office.tree.no_window("تغییر نام فیلتر")
    wait_for(lambda: stored(office) == SECOND, "the other name")
    driver.keys(window, "Delete")
    office.message(labels.QUESTION, SECOND, labels.YES)
    wait_for(lambda: stored(office) is None, "no filter")
    driver.keys(window, "Escape")
    office.tree.no_window(KEPT)
    office.leave()


def from_menu(office, text, picture=None):
    work.choose_from_menu(office, lambda: office.driver.press(FILTERS, office.main), text, picture)


def stored(office):
    rows = office.database.rows("SELECT sName FROM SavedFilters")
    return rows[0]["sName"] if rows else None


if __name__ == "__main__":
    run(saved_filter, __doc__)
