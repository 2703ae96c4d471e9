# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""An office in a data folder of its own, whose server other desks reach on loopback as if they were its program."""

import configparser
import fcntl
import os
import shutil

from lib.database import Database
from lib.server import ACCOUNT, free_port
from lib.waiting import wait_for

OFFICE = "tzauto"
PATIENCE = 120
# What programs hold for a while, and what is written about backups themselves.
_PASSING = ("Leases", "UnitTokens")


class OfficeFolder:
    def __init__(self, rig, processes, path):
        self._rig = rig
        self._processes = processes
        self.path = path
        self._server = None
        self._locks = []
        self.port = None
        self.persons = []  # keys of those whom contracts are between

    @property
    def database(self):
        return Database(self.path)

    @property
    def _password_file(self):
        return os.path.join(self.path, "desk-password")

    # --- Without a program ---

    def create(self, keeps_log):
        """The first start of the real program."""
        os.makedirs(os.path.join(self.path, "settings"), mode=0o700)
        os.chmod(self.path, 0o700)
        settings = configparser.ConfigParser()
        settings.optionxform = str
        settings["Server"] = {"bKeepBinaryLog": str(int(keeps_log))}
        with open(os.path.join(self.path, "settings", "tzhost.ini"), "w", encoding="utf-8") as file:
            settings.write(file, space_around_delimiters=False)
        self.start_once()

    def start_once(self):
        """The real program as far as its login; fails when that does not appear."""
        self.tool("--quit-after-login-shown")

    def tool(self, *words, awaited=0):
        """The real program with a command for the folder; what it printed."""
        process = self.begin_tool(*words)
        out = process.communicate(timeout=PATIENCE)[0].decode("utf-8", "replace")
        self._processes.forget(process)
        if process.returncode != awaited:
            raise AssertionError(f"{' '.join(words)} ended with {process.returncode}, not {awaited}: {out}")
        return out

    def begin_tool(self, *words):
        return self._rig.embedded_tool(self.path, *words)

    def kill(self, process):
        process.kill()
        process.communicate()
        self._processes.forget(process)

    # --- As if its program worked ---

    def open(self):
        """Takes the folder's locks and starts its server, with the options that the program wrote, on loopback too."""
        for name in ("program.lock", "server.lock"):
            lock = open(os.path.join(self.path, name), "a", encoding="ascii")  # noqa: SIM115 - held until close
            # What the program before has started may hold them for a moment longer than it lives.
            wait_for(lambda lock=lock: _locked(lock), f"{name} to be free", seconds=20)
            self._locks.append(lock)
        self.port = free_port()
        self._server = self._processes.start(
            [shutil.which("mariadbd") or "/usr/sbin/mariadbd", f"--defaults-file={os.path.join(self.path, 'server.cnf')}",
             "--skip-networking=0", "--bind-address=127.0.0.1", f"--port={self.port}"], log=os.path.join(self.path, "logs", "desks.log"))
        wait_for(lambda: self.database.value("SELECT 1") == "1", "the folder's server", seconds=60)
        self._let_desks_in()

    def _let_desks_in(self):
        with open(os.open(self._password_file, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600), "w", encoding="ascii") as file:
            file.write("only-on-loopback\n")
        self.database.rows(f"SET SESSION sql_log_bin=0; CREATE OR REPLACE USER '{ACCOUNT}'@'127.0.0.1' IDENTIFIED BY 'only-on-loopback'; "
                           f"GRANT ALL ON {OFFICE}.* TO '{ACCOUNT}'@'127.0.0.1'; GRANT PROCESS ON *.* TO '{ACCOUNT}'@'127.0.0.1'")

    def close(self):
        self._processes.end(self._server, patience=30)
        self._server = None
        for lock in self._locks:
            lock.close()
        self._locks.clear()

    def rows_of_all(self):
        """tables, where nothing works on the folder."""
        self.open()
        rows = self.tables()
        self.close()
        return rows

    def desk(self, **options):
        return self._rig.desk_at(["--connect", f"127.0.0.1:{self.port}/{OFFICE}", "--user", ACCOUNT,
                                  "--password-file", self._password_file], **options)

    # --- What it holds ---

    def tables(self):
        """Every row of every table that users fill, as the server's own client reads them: by table, sorted lists of tuples."""
        columns = {}
        for row in self.database.rows("SELECT c.TABLE_NAME, c.COLUMN_NAME FROM information_schema.COLUMNS c JOIN "
                                      "information_schema.TABLES t USING (TABLE_SCHEMA, TABLE_NAME) WHERE t.TABLE_TYPE='BASE TABLE' AND "
                                      f"c.TABLE_SCHEMA='{OFFICE}' ORDER BY c.TABLE_NAME, c.ORDINAL_POSITION"):
            columns.setdefault(row["TABLE_NAME"], []).append(row["COLUMN_NAME"])
        found = {}
        for table, names in columns.items():
            if table in _PASSING:
                continue
            # What the program notes about a backup or its restoring is no part of it.
            where = " WHERE sTable<>'Backup'" if table == "Changes" else ""
            values = ",".join(f"IFNULL(HEX(CAST(`{name}` AS BINARY)),'~') AS `{name}`" for name in names)
            found[table] = sorted(tuple(row.values()) for row in self.database.rows(f"SELECT {values} FROM `{table}`{where}"))
        return found


def _locked(file):
    try:
        fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        return False
    return True


def differences(wanted, found):
    """What is not the same, in words; empty when everything is."""
    words = []
    for table in sorted(wanted.keys() | found.keys()):
        before, after = set(wanted.get(table, ())), set(found.get(table, ()))
        if table not in wanted or table not in found:
            words.append(f"{table} is there only once")
        elif wanted[table] != found[table]:
            words.append(f"{table}: {len(before - after)} rows are missing, {len(after - before)} too many, "
                         f"such as {[_plain(row) for row in sorted(before ^ after)[:2]]}")
    return words


def _plain(row):
    return [bytes.fromhex(cell).decode("utf-8", "replace")[:40] if cell != "~" else None for cell in row]

