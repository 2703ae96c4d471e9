#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program is killed in an upgrade at any statement: the next start finishes it, with the module and with every row."""

import queue

import rig  # noqa: F401 - finds the library of the journeys
from first_starts import ended, schema, start
from rig.fault import check, run, step
from rig.wire import Fate, nth

# An office of years ago: what the later steps added is taken off, the versions are set back, and the tables hold rows.
OLDER = """
DROP TABLE AutomobilPayments, CarBrands, CarModels, CarClasses, CarYears, UnitTokens, Changes, Placeholders;
ALTER TABLE Receipts DROP COLUMN iTable, DROP COLUMN iRecordID, DROP COLUMN iPaymentID, DROP COLUMN iStatus,
  DROP COLUMN iVoidUserID, DROP COLUMN dateVoid, DROP COLUMN sVoidReason;
ALTER TABLE AutomobilDemands DROP COLUMN iAlarmID;
ALTER TABLE AutomobilInformations DROP COLUMN iYear, DROP COLUMN iMonth, DROP COLUMN dateInsurance, DROP COLUMN sDiscountYears,
  DROP COLUMN sNameInsurance, DROP COLUMN iFunction, DROP COLUMN iTypeDocument, DROP COLUMN oPicture,
  CHANGE COLUMN iBodyStatus sBodyStatus VARCHAR(50);
UPDATE Properties SET sValue='10' WHERE sSection='Schema' AND sKey='Suite';
UPDATE Properties SET sValue='4.659' WHERE sSection='Schema' AND sKey='TzAuto';
INSERT INTO AutomobilContracts(iCode) VALUES (1),(2);
INSERT INTO AutomobilDemands(iCode) VALUES (1),(2);
INSERT INTO AutomobilInformations(iCode,sBodyStatus) VALUES (1,'3'),(2,'4');
INSERT INTO Receipts(dAmount) VALUES (1),(2);
INSERT INTO Persons(iCode) VALUES (1),(2)
"""
ROWS = ("AutomobilContracts", "AutomobilDemands", "AutomobilInformations", "Receipts", "Persons")


def changes(statement):
    """A kill before a statement that only reads is a kill before the next one that changes something."""
    return statement.startswith(("ALTER", "CREATE", "DROP", "INSERT", "UPDATE", "REPLACE", "COMMIT", "DELETE"))


class Upgrades:
    def __init__(self, office, wire, older):
        self._office = office
        self._wire = wire
        self._older = older

    def begin(self):
        """A database before its upgrade."""
        self._office.server.empty()
        self._wire.obey(None)
        if self._older:
            check(start(self._office, 1) == [0], "the start before")
            self._office.database.rows(OLDER)

    def count(self):
        """Statements of the upgrade that change something."""
        self.begin()
        check(ended(self._office.program("--quit-after-login-shown", port=self._wire.port)) == 0, "an upgrade that nobody kills")
        return sum(changes(statement) for statement in self._wire.statements)

    def kill(self, number):
        """The statement before which the program was killed; nothing when it had ended by then."""
        started = queue.SimpleQueue()
        killed_before = []

        def end(statement):
            # It may get here before whoever started it knows its process.
            started.get().kill()
            killed_before.append(statement)
            return Fate.CUT_BEFORE
        self._wire.obey(nth(number, end, counts=changes))
        program = self._office.program("--quit-after-login-shown", port=self._wire.port)
        started.put(program)
        ended(program)
        return killed_before[0] if killed_before else None

    def check(self, wanted, after):
        office = self._office
        if self._older and office.database.number("SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA='office' "
                                                  "AND TABLE_NAME='CarBrands'") == 1:
            office.database.rows("INSERT INTO CarBrands(sName) VALUES ('typed')")
            kept = 1
        else:
            kept = 0
        check(start(office, 1) == [0], f"{after}: the next start; {office.program_logs()}")
        check("module-schema" in office.program_logs(), f"{after}: with the module")
        found = schema(office.database)
        check(found == wanted, f"{after}: {found[1]} {set(found[0]) ^ set(wanted[0])}")
        check(office.database.number("SELECT COUNT(*) FROM CarBrands") == kept, f"{after}: no row of the catalog is lost")
        for table in ROWS if self._older else ():
            check(office.database.number(f"SELECT COUNT(*) FROM {table}") == 2, f"{after}: {table} keeps its rows")


def upgrade_killed(office):
    office.open_empty()
    check(start(office, 1) == [0], "one program alone")
    wanted = schema(office.database)
    wire = office.wire()
    kills = 0
    for older in (False, True):
        upgrades = Upgrades(office, wire, older)
        statements = upgrades.count()
        step(f"{statements} statements, {'an older office' if older else 'an empty database'}")
        # Spread over the whole, not twice at the same.
        for number in sorted(office.random.sample(range(1, statements + 1), min(office.rounds, statements))):
            upgrades.begin()
            statement = upgrades.kill(number)
            if statement is None:
                continue
            kills += 1
            upgrades.check(wanted, f"killed before statement {number} of {statements}, {statement[:70]}")
    wire.close()
    check(kills > 0, "some start was killed")
    return f"{kills} kills, each upgrade finished by the next start, no row lost"


if __name__ == "__main__":
    run(upgrade_killed, __doc__, rounds=2)
