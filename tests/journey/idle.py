#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Nobody is at the desk: the program asks its server for nothing, and it sleeps. A test of stillness has to wait for a span of time."""

import time

from lib import footprint, labels
from lib.journey import check, run, step
from lib.waiting import wait_for

STILL_SECONDS = 20
MOST_WAKES_A_SECOND = 1.0
MOST_PROGRAM_MIB = 120
MOST_SERVER_MIB = 150


def stay_still(office, where):
    step(f"nobody is at the desk: {where}")
    program = office.process_id
    wait_for(lambda: footprint.is_settled(program, office.database), "the program to settle", seconds=60)
    with footprint.statements_meanwhile(office.database) as statements:
        woken = footprint.wakes_meanwhile(program, STILL_SECONDS)
    rate = sum(woken.values()) / STILL_SECONDS
    step(f"{rate:.2f} wakes a second ({woken}), {len(statements)} statements")
    for name, process, most in (("program", program, MOST_PROGRAM_MIB), ("server", office.server_process_id, MOST_SERVER_MIB)):
        taken = footprint.memory(process)
        step(f"{name}: {taken['resident'] / 1024:.1f} MiB, {taken['private'] / 1024:.1f} of them its own, at most {taken['peak'] / 1024:.1f}")
        check(taken["resident"] < most * 1024, f"the idle {name} takes less than {most} MiB")
    check(not statements, f"the idle program asks for nothing: {statements}")
    check(rate <= MOST_WAKES_A_SECOND, f"the idle program wakes at most {MOST_WAKES_A_SECOND:g} times a second, not {rate:.2f}: {woken}")


def idle(office):
    office.start()
    office.log_in_demo()
    stay_still(office, "at the first page")
    table = office.open_contracts()
    wait_for(lambda: table.row_count > 0, "the contracts")
    stay_still(office, "at a list")

    step("what the measuring sees")
    with footprint.statements_meanwhile(office.database) as statements:
        began = sum(footprint.wakes(office.process_id).values())
        office.driver.press(labels.SEARCH, office.main)
        wait_for(lambda: sum(footprint.wakes(office.process_id).values()) > began + 3, "wakes to be counted")
        time.sleep(1)
    check(any("AutomobilContracts" in text for text in statements), f"what a list asks for is seen: {statements}")
    office.leave()


if __name__ == "__main__":
    run(idle, __doc__)
