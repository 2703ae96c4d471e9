# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The frame of a test of faults: a server, desks, a time limit, and a line for the table of what was tried how often."""

import argparse
import os
import random
import shutil
import signal
import sys
import tempfile
import time
import traceback

from lib.processes import Processes
from lib.server import OFFICE, Server
from lib.sound_books import check as check_books

from . import CLERK
from .cluster import Cluster
from .desk import Desk
from .folder import OfficeFolder
from .wire import Wire


_began = time.monotonic()


class Interrupted(BaseException):
    """The test was told to stop, or took too long."""


def step(text):
    print(f"{time.monotonic() - _began:6.1f} s  {text}", flush=True)


def check(right, what):
    if not right:
        raise AssertionError(f"not so: {what}")


class Rig:
    """A server on a copy of the prepared office (or an empty one), and what works on it."""

    def __init__(self, arguments, processes, folder):
        self._arguments = arguments
        self._processes = processes
        self._folder = folder
        self._count = 0
        self.rounds = arguments.rounds
        self.random = random.Random(arguments.seed)
        self.server = None

    def open_office(self):
        """A copy of the prepared office: a schema, an administrator, persons."""
        shutil.copytree(self._arguments.office, os.path.join(self._folder, "server"))
        self.server = Server(self._processes, os.path.join(self._folder, "server"))
        self.server.start()
        return self.server

    def open_cluster(self):
        """Three nodes on a copy of the prepared office."""
        shutil.copytree(self._arguments.office, os.path.join(self._folder, "server"))
        # Of the server that made the office only its files are left, and the password of its account.
        self.server = Server(self._processes, os.path.join(self._folder, "server"))
        cluster = Cluster(self._processes, self._folder)
        cluster.start(os.path.join(self._folder, "server", "data"), OFFICE)
        return cluster

    def open_empty(self):
        """A server with an empty database."""
        self.server = Server(self._processes, os.path.join(self._folder, "server"))
        self.server.create()
        return self.server

    @property
    def database(self):
        return self.server.database

    def leave_office(self):
        """Where the other tests copy it from."""
        self.server.stop()
        shutil.rmtree(self._arguments.keep, ignore_errors=True)
        shutil.copytree(os.path.join(self._folder, "server"), self._arguments.keep, ignore=shutil.ignore_patterns("*.log", "db.sock"))

    def persons(self):
        """Keys of the two persons whom contracts are between."""
        return [row["iID"] for row in self.database.rows("SELECT iID FROM Persons ORDER BY iID LIMIT 2")]

    def wire(self):
        return Wire(self.server.port)

    def desk(self, *, port=None, address=None, user=CLERK):
        """Another desk, logged in unless user is None."""
        self._count += 1
        desk = Desk(self._processes, self._arguments.tzdesk, ["--data-dir", self._place(), *self.server.options(port=port, address=address)],
                    self._log("desk"), self._environment())
        if user is not None:
            desk.do("login", user)
        return desk

    def program(self, *further, port=None):
        """The real program, which is told nothing; the process."""
        self._count += 1
        return self._processes.start(
            [self._arguments.tzhost, "--data-dir", self._place(), *self.server.options(port=port), *further],
            log=self._log("program"), environment=self._environment())

    def folder(self, name):
        return os.path.join(self._folder, name)

    def embedded(self, folder, *further):
        """The real program on a database of its own; the process."""
        return self._processes.start([self._arguments.tzhost, "--data-dir", folder, *further],
                                     log=os.path.join(self._folder, "embedded.log"), environment=self._environment())

    def embedded_tool(self, folder, *words):
        """The real program with a command for its own database, which ends by itself; what it prints goes to the caller."""
        return self._processes.start([self._arguments.tzhost, "--data-dir", folder, *words],
                                     log=os.path.join(self._folder, "tool.log"), environment=self._environment(), talks=True)

    def office_folder(self, name):
        """A data folder, with nothing in it yet."""
        return OfficeFolder(self, self._processes, self.folder(name))

    def desk_at(self, options, user=CLERK):
        """A desk that connects by such options, logged in unless user is None."""
        self._count += 1
        desk = Desk(self._processes, self._arguments.tzdesk, ["--data-dir", self._place(), *options], self._log("desk"),
                    self._environment())
        if user is not None:
            desk.do("login", user)
        return desk

    def server_on(self, folder):
        """A database server on the files of a program that is gone; the process."""
        return self._processes.start([shutil.which("mariadbd") or "/usr/sbin/mariadbd",
                                      f"--defaults-file={os.path.join(folder, 'server.cnf')}"],
                                     log=os.path.join(self._folder, "left.log"))

    @staticmethod
    def log_of(folder):
        path = os.path.join(folder, "logs", "tzhost.log")
        if not os.path.exists(path):
            return ""
        with open(path, encoding="utf-8", errors="replace") as file:
            return file.read()

    def program_logs(self):
        """What the last two programs wrote of themselves."""
        texts = []
        for count in (self._count - 1, self._count):
            path = os.path.join(self._folder, f"place{count}", "logs", "tzhost.log")
            texts.append(_tail(path))
        return "\n".join(texts)

    def _place(self):
        return os.path.join(self._folder, f"place{self._count}")

    def _log(self, kind):
        return os.path.join(self._folder, f"{kind}{self._count}.log")

    def _environment(self):
        runtime = os.path.join(self._folder, "runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "HOME": self._folder,
                "XDG_RUNTIME_DIR": runtime, "QT_LOGGING_RULES": "qt.qpa.*=false"}

    def check_books(self, after):
        check_books(self.database, after)

    def words(self):
        """What the programs and the server said, for a failure."""
        texts = []
        for name in sorted(os.listdir(self._folder)):
            if name.endswith(".log"):
                texts.append(_tail(os.path.join(self._folder, name)))
        texts.append(_tail(os.path.join(self._folder, "server", "server.log"), 800))
        return "\n".join(text for text in texts if text)


def _tail(path, most=2500):
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            text = file.read().strip()
    except OSError:
        return ""
    return f"--- {os.path.basename(path)} ---\n{text[-most:]}" if text else ""


def _arguments(description, rounds):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--tzdesk", required=True, help="the built tzdesk")
    parser.add_argument("--tzhost", required=True, help="the built tzhost")
    parser.add_argument("--office", help="the prepared office; the test works on a copy of it")
    parser.add_argument("--keep", metavar="FOLDER", help="where the office is left for the other tests")
    parser.add_argument("--rounds", type=int, default=rounds, help="how often")
    parser.add_argument("--seed", type=int, default=None, help="of what is tried at random; printed, so that it can be repeated")
    parser.add_argument("--seconds", type=int, default=280, help="the longest that the test may take")
    parser.add_argument("--table", help="a file that gets the line for the table")
    arguments = parser.parse_args()
    if arguments.seed is None:
        arguments.seed = random.SystemRandom().randrange(1_000_000)
    return arguments


def _stop(number, _frame):
    raise Interrupted("the time is over" if number == signal.SIGALRM else signal.Signals(number).name)


def run(test, description, *, rounds=1):
    """Runs test(rig), which raises on what is not right and returns in words what came out, and exits."""
    arguments = _arguments(description, rounds)
    for number in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        signal.signal(number, _stop)
    signal.alarm(arguments.seconds)
    status = 1
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="tzf-", dir=memory) as folder:
        processes = Processes()
        rig = Rig(arguments, processes, folder)
        result = "failed"
        try:
            print(f"seed {arguments.seed}")
            result = test(rig)
            status = 0
        except (Exception, Interrupted) as error:
            signal.alarm(0)
            traceback.print_exc()
            if isinstance(error, Interrupted):
                print(f"stopped: {error}", file=sys.stderr)
            print(rig.words(), file=sys.stderr)
        finally:
            signal.alarm(0)
            processes.end_all()
    name = os.path.splitext(os.path.basename(sys.argv[0]))[0]
    line = f"{name} | {arguments.rounds} | {result} | {time.monotonic() - _began:.1f} s"
    print(line)
    if arguments.table:
        with open(arguments.table, "a", encoding="utf-8") as file:
            file.write(line + "\n")
    sys.exit(status)
