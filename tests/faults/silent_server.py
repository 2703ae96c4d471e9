#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The server goes silent: the window says so after a second, the wait can be given up, and what was typed stays."""

import time

import rig
from rig.fault import check, run, step
from rig.wire import Fate, nth

TOLD_WITHIN = 15.0
GIVEN_UP_WITHIN = 15.0


def told(desk, *command):
    """Gives the command and hears the notice, in time."""
    began = time.monotonic()
    answer = desk.ask(*command, seconds=TOLD_WITHIN + 20)
    took = time.monotonic() - began
    check(answer["is"] == "window" and rig.GIVE_UP in answer["window"]["buttons"], f"the wait is told: {answer}")
    check(took < TOLD_WITHIN, f"told after {took:.1f} s")


def give_up(desk, awaited):
    began = time.monotonic()
    answer = desk.ask("press", rig.GIVE_UP, seconds=GIVEN_UP_WITHIN + 20)
    took = time.monotonic() - began
    check(answer["is"] == awaited and answer["said"], f"given up, and told so: {answer}")
    check(took < GIVEN_UP_WITHIN, f"given up after {took:.1f} s")


def frozen(office, desk, key, number):
    text = f"frozen {number}"
    desk.open(key)
    desk.do("set", "sExplain", text)
    office.server.freeze()
    try:
        told(desk, "save")
        give_up(desk, "kept")
        check(desk.do("get", "sExplain") == text, "what was typed is still there")
    finally:
        office.server.thaw()
    desk.do("save", awaited="closed")
    check(office.database.value(f"SELECT sExplain FROM AutomobilContracts WHERE iID={key}") == text, "saved once it answers")


def silent_wire(office, desk, wire, key, number):
    """The server does what it was told, and its answer never comes."""
    text = f"silent {number}"
    wire.obey(None)
    desk.open(key)
    desk.do("set", "sExplain", text)
    wire.obey(nth(1, lambda _: Fate.SILENT_AFTER, counts=lambda statement: statement.startswith("UPDATE AutomobilContracts")))
    told(desk, "save")
    give_up(desk, "kept")
    check(office.database.value(f"SELECT sExplain FROM AutomobilContracts WHERE iID={key}") != text, "nothing was saved")
    wire.obey(None)
    desk.do("save", awaited="closed")
    check(office.database.value(f"SELECT sExplain FROM AutomobilContracts WHERE iID={key}") == text, "saved then")


def silent_server(office):
    office.open_office()
    wire = office.wire()
    direct, wired = office.desk(), office.desk(port=wire.port)
    for desk in (direct, wired):
        desk.do("notices", "on")
    key = direct.add_contract(office.persons(), 100_000_000)
    for number in range(1, office.rounds + 1):
        step("the server is stopped")
        frozen(office, direct, key, number)
        step("the wire is silent")
        silent_wire(office, wired, wire, key, number)
        office.check_books(f"round {number}")
    wire.close()
    return f"told within {TOLD_WITHIN:g} s, given up within {GIVEN_UP_WITHIN:g} s, nothing lost"


if __name__ == "__main__":
    run(silent_server, __doc__, rounds=1)
