#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A contract is archived, found among the archived ones, opens read-only, and comes back."""

from lib import labels, work
from lib.journey import check, run, step
from lib.waiting import wait_for


def archive(office):
    office.start()
    office.log_in()
    table = office.open_contracts()
    wait_for(lambda: table.row_count == 1, "the contract in the list")

    step("archived")
    office.driver.select_row(table, 0)
    office.command(labels.ARCHIVE)
    office.message(labels.NOTICE, labels.IS_ARCHIVED)
    wait_for(lambda: table.row_count == 0, "the archived contract to leave the list")
    check(archiving_user(office) == administrator(office), "the contract names who archived it")

    step("found among the archived ones, archived once only")
    work.search_archive(office, labels.ARCHIVED)
    wait_for(lambda: table.row_count == 1, "the contract among the archived ones")
    check(table.row(0)[labels.COLUMN_ARCHIVED] == labels.YES_IN_LIST, "the row says that it is archived")
    office.pictures.take("archived", "The contract among the archived ones")
    office.driver.select_row(table, 0)
    office.command(labels.ARCHIVE)
    office.message(labels.WARNING, labels.IS_ARCHIVED_ALREADY)

    step("not among those of others")
    work.search_archive(office, labels.ARCHIVED_BY_OTHERS)
    wait_for(lambda: table.row_count == 0, "no contract that others archived")

    step("opens read-only and comes back")
    work.search_archive(office, labels.ARCHIVED)
    wait_for(lambda: table.row_count == 1, "the contract among the archived ones")
    office.driver.select_row(table, 0)
    office.command(labels.EDIT)
    window = office.tree.window(labels.EDITOR_SHOW)
    check(not office.tree.shows("push button", labels.OK, window), "an archived contract cannot be saved")
    office.pictures.take("read-only", "An archived contract opens read-only")
    office.driver.press(labels.UNARCHIVE, window)
    office.message(labels.WARNING, labels.IS_UNARCHIVED)
    office.tree.no_window(labels.EDITOR_SHOW)
    wait_for(lambda: table.row_count == 0, "the list to be filled again")
    check(archiving_user(office) == 0, "the contract is archived no more")
    work.search_archive(office, labels.NOT_ARCHIVED)
    wait_for(lambda: table.row_count == 1, "the contract back in the list")
    office.leave()


def archiving_user(office):
    return office.database.number("SELECT iArchiveUserID FROM AutomobilContracts")


def administrator(office):
    return office.database.number("SELECT iID FROM Users WHERE bAdmin=1")


if __name__ == "__main__":
    run(archive, __doc__)
