# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The office's database as the ordinary client shows it, while the program runs."""

import os
import shutil
import subprocess


class Database:
    def __init__(self, data_folder):
        client = shutil.which("mariadb") or shutil.which("mysql")
        if client is None:
            raise RuntimeError("the package mariadb-client-core is not installed")
        self._command = [client, f"--defaults-file={os.path.join(data_folder, 'client.cnf')}", "--batch", "--raw"]

    def rows(self, statement):
        """The result as a list of dictionaries of texts; NULL is None."""
        answer = subprocess.run([*self._command, "--execute", statement], capture_output=True, text=True, timeout=20,
                                check=False)
        if answer.returncode != 0:
            raise AssertionError(f"{statement}: {answer.stderr.strip()}")
        lines = answer.stdout.splitlines()
        if not lines:
            return []
        columns = lines[0].split("\t")
        values = ([None if cell == "NULL" else cell for cell in line.split("\t")] for line in lines[1:])
        return [dict(zip(columns, row, strict=True)) for row in values]

    def row(self, statement):
        rows = self.rows(statement)
        if len(rows) != 1:
            raise AssertionError(f"{statement}: {len(rows)} rows instead of one")
        return rows[0]

    def value(self, statement):
        return next(iter(self.row(statement).values()))

    def number(self, statement):
        return float(self.value(statement) or 0)
