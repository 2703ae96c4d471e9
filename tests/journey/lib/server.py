# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A database server of the test's own on loopback, as an office has one, to be stopped and killed."""

import getpass
import os
import secrets
import shutil
import signal
import socket
import subprocess

from .database import Database
from .waiting import wait_for

ACCOUNT = "desk"
OFFICE = "office"
_SYSTEM_TABLES = "/usr/bin/mariadb-install-db"
# The server's own limit of a lock wait stays, so that a desk that does not set its own is found out.
_OPTIONS = ("--bind-address=127.0.0.1", "--skip-name-resolve", "--innodb-log-file-size=8M", "--innodb-buffer-pool-size=48M",
            "--innodb-flush-log-at-trx-commit=1", "--performance-schema=OFF", "--character-set-server=utf8mb4",
            "--max-connections=80", "--max-allowed-packet=32M", "--skip-log-bin", "--max-connect-errors=1000000")


class Server:
    """data: the folder with the server's files; what else it needs is beside them."""

    def __init__(self, processes, folder):
        self._processes = processes
        self._folder = folder
        self._data = os.path.join(folder, "data")
        self._socket = os.path.join(folder, "db.sock")
        self.port = free_port()
        self.process = None
        os.makedirs(os.path.join(folder, "tmp"), exist_ok=True)

    @property
    def password_file(self):
        return os.path.join(self._folder, "password")

    def options(self, *, port=None, address=None):
        """How a program connects to the server, directly, through a wire, or to the nodes of a cluster."""
        return ["--connect", f"{address or f'127.0.0.1:{port or self.port}'}/{OFFICE}", "--user", ACCOUNT,
                "--password-file", self.password_file]

    @property
    def database(self):
        """As the administrator, past the program and past a wire to the server."""
        return Database(self._folder)

    def create(self):
        """The system tables, an empty database and the account that desks use; the server runs then."""
        os.makedirs(self._data)
        subprocess.run([_SYSTEM_TABLES, "--no-defaults", f"--datadir={self._data}", f"--user={getpass.getuser()}",
                        "--skip-test-db", "--auth-root-authentication-method=socket",
                        f"--auth-root-socket-user={getpass.getuser()}", "--innodb-log-file-size=8M"],
                       check=True, capture_output=True, timeout=60)
        password = secrets.token_hex(12)
        with open(os.open(self.password_file, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600), "w", encoding="ascii") as file:
            file.write(password + "\n")
        self._write_client("")
        self._launch()
        self.database.rows(f"CREATE DATABASE {OFFICE}; CREATE USER '{ACCOUNT}'@'127.0.0.1' IDENTIFIED BY '{password}'; "
                           f"GRANT ALL ON {OFFICE}.* TO '{ACCOUNT}'@'127.0.0.1'; "
                           # Only so the server tells who holds a row.
                           f"GRANT PROCESS ON *.* TO '{ACCOUNT}'@'127.0.0.1'")
        self._write_client(f"[mysql]\ndatabase={OFFICE}\n")

    def _write_client(self, further):
        with open(os.path.join(self._folder, "client.cnf"), "w", encoding="utf-8") as file:
            file.write(f"[client]\nuser={getpass.getuser()}\nprotocol=socket\nsocket={self._socket}\n"
                       f"default-character-set=utf8mb4\n{further}")

    def start(self):
        """On files that are there, its own or a copy of another's."""
        self._write_client(f"[mysql]\ndatabase={OFFICE}\n")
        self._launch()

    def _launch(self):
        program = shutil.which("mariadbd") or "/usr/sbin/mariadbd"
        self.process = self._processes.start(
            [program, "--no-defaults", f"--datadir={self._data}", f"--socket={self._socket}", f"--port={self.port}",
             f"--tmpdir={os.path.join(self._folder, 'tmp')}", f"--pid-file={os.path.join(self._folder, 'server.pid')}",
             f"--user={getpass.getuser()}", *_OPTIONS],
            log=os.path.join(self._folder, "server.log"))
        wait_for(self._answers, "the database server", seconds=60)

    def _answers(self):
        with socket.socket(socket.AF_UNIX) as line:
            line.settimeout(1)
            line.connect(self._socket)
            return len(line.recv(5)) == 5

    def stop(self):
        self._processes.end(self.process, patience=30)
        self.process = None

    def kill(self):
        self.process.kill()
        self.process.wait()

    def freeze(self):
        """It keeps its connections and says nothing."""
        os.kill(self.process.pid, signal.SIGSTOP)

    def thaw(self):
        os.kill(self.process.pid, signal.SIGCONT)

    def empty(self):
        """As before the first start of a program."""
        self.database.rows(f"DROP DATABASE {OFFICE}; CREATE DATABASE {OFFICE}")


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]
