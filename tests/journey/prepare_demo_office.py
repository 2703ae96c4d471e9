#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the office of two busy years that the journeys through the reports start from, and a user without rights."""

from lib import rights, sound_books
from lib.journey import check, run, step
from lib.waiting import wait_for

CONTRACTS = 150
# What the journeys look for in its season and year does not change with the calendar.
DAY = "2026-11-12"


def prepare(office):
    step("a demo office")
    office.start("--demo", "--demo-size", str(CONTRACTS), "--demo-day", DAY)
    office.log_in_demo()
    table = office.open_contracts()
    wait_for(lambda: table.row_count > 0, "the contracts of the demo office")
    check(office.database.number("SELECT COUNT(*) FROM AutomobilContracts") == CONTRACTS, "as many contracts as asked for")
    sound_books.check(office.database, "the demo office")
    check_money(office.database)
    step("a user without rights")
    rights.add_user(office, rights.NOBODY, ())
    office.leave()


def check_money(database):
    """The office has what days of a cashier have."""
    wanted = {"receipts that stand": "Receipts WHERE iStatus=0", "a void one": "Receipts WHERE iStatus=1",
              "unpaid ones of bounced cheques": "Receipts WHERE iStatus=2", "cheques in hand": "Cheques WHERE iState=0",
              "cleared cheques": "Cheques WHERE iState=2", "paid instalments": "AutomobilPayments WHERE iStatus=1",
              "open instalments": "AutomobilPayments WHERE iStatus=0"}
    for what, rows in wanted.items():
        check(database.number(f"SELECT COUNT(*) FROM {rows}") > 0, f"there are {what}")


if __name__ == "__main__":
    run(prepare, __doc__)
