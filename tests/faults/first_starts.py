#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two programs start on an empty database at once: neither fails, the schema is whole, and the next start keeps all rows."""

import subprocess

import rig  # noqa: F401 - finds the library of the journeys
from rig.fault import check, run, step

VERSIONS = "SELECT sKey, sValue FROM Properties WHERE sSection='Schema' ORDER BY sKey"
PATIENCE = 60
# Of three steps; each start leaves them as they are.
TABLES = ("CarBrands", "AutomobilTariffs", "AutomobilContracts")


def ended(program, seconds=PATIENCE):
    """Its exit code; a program that shows a message waits for ever."""
    try:
        return program.wait(seconds)
    except subprocess.TimeoutExpired:
        program.kill()
        return "a message was shown"


def schema(database):
    """Everything that a start makes, but the rows."""
    columns = database.rows("SELECT TABLE_NAME, COLUMN_NAME, COLUMN_TYPE FROM information_schema.COLUMNS "
                            "WHERE TABLE_SCHEMA='office' ORDER BY 1, 2")
    return [tuple(row.values()) for row in columns], [tuple(row.values()) for row in database.rows(VERSIONS)]


def start(office, programs):
    started = [office.program("--quit-after-login-shown") for _ in range(programs)]
    return [ended(program) for program in started]


def version_is_missing(office):
    """Tables with rows whose version nobody knows are left as they are."""
    office.database.rows("DELETE FROM Properties WHERE sSection='Schema'")
    rows = {table: office.database.number(f"SELECT COUNT(*) FROM {table}") for table in TABLES}
    result = ended(office.program("--quit-after-login-shown"), 5)
    check(result != 0, "a start without a stored version stops")
    for table, count in rows.items():
        check(office.database.number(f"SELECT COUNT(*) FROM {table}") == count, f"without a version: {table} keeps its rows")
    check(office.database.rows(VERSIONS) == [], "and no version is made up")


def first_starts(office):
    office.open_empty()
    check(start(office, 1) == [0], "one program alone")
    wanted = schema(office.database)
    step(f"versions {wanted[1]}")
    for number in range(1, office.rounds + 1):
        office.server.empty()
        results = start(office, 2)
        after = f"round {number}"
        check(results == [0, 0], f"{after}: {results}; {office.program_logs()}")
        check("module-schema" in office.program_logs() and "refused" not in office.program_logs(), f"{after}: with the module")
        found = schema(office.database)
        check(found[1] == wanted[1], f"{after}: versions {found[1]}, not {wanted[1]}")
        check(found[0] == wanted[0], f"{after}: {set(found[0]) ^ set(wanted[0])}")
        office.database.rows("INSERT INTO CarBrands(sName) VALUES ('a'); INSERT INTO AutomobilTariffs() VALUES (); "
                             "INSERT INTO AutomobilContracts(iCode) VALUES (1)")
        check(start(office, 1) == [0], f"{after}: the next start")
        for table in TABLES:
            check(office.database.number(f"SELECT COUNT(*) FROM {table}") == 1, f"{after}: {table} keeps its row")
    step("a version that is missing")
    version_is_missing(office)
    return "no start failed, versions and tables right; a missing version stops"


if __name__ == "__main__":
    run(first_starts, __doc__, rounds=4)
