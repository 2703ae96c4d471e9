#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the office of two busy years that the journeys through the reports start from, and a user without rights."""

from lib import labels, rights
from lib.journey import check, run, step
from lib.waiting import wait_for

CONTRACTS = 150


def prepare(office):
    step("a demo office")
    office.start("--demo", "--demo-size", str(CONTRACTS))
    office.log_in_demo()
    table = office.open_contracts()
    wait_for(lambda: table.row_count > 0, "the contracts of the demo office")
    check(office.database.number("SELECT COUNT(*) FROM AutomobilContracts") == CONTRACTS, "as many contracts as asked for")
    step("a user without rights")
    rights.add_user(office, rights.NOBODY, ())
    office.leave()


if __name__ == "__main__":
    run(prepare, __doc__)
