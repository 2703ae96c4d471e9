#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Start of the program on an existing data folder to the painted login, server included, and by turns the start of its bare
database server on the same folder until it greets. Prints the median of each phase of the program's start.

    startup.py TZHOST [--starts N] [--samples FILE]"""

import argparse
import json
import os
import re
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time

PHASE = re.compile(r"startup: (.+) (\d+)$")
LIMIT = 120  # seconds


def start_program(program, folder):
    """The phases of one start in milliseconds, by name; "total" is all of it until the login is painted, "answering" until it can
    be answered."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    subprocess.run([program, "--data-dir", folder, "--demo", "--demo-size", "300", "--quit-after-login-shown"],
                   env=environment, check=True, timeout=LIMIT, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    with open(os.path.join(folder, "logs", "tzhost.log"), encoding="utf-8") as log:
        found = [PHASE.search(line) for line in log]
    return {match.group(1): int(match.group(2)) for match in found if match}


def server_socket(folder):
    with open(os.path.join(folder, "server.cnf"), encoding="utf-8") as options:
        return next(line.split("=", 1)[1].strip().strip('"') for line in options if line.startswith("socket="))


def start_server(folder):
    """Milliseconds from the start of the server, as the program starts it, to its greeting."""
    path = server_socket(folder)
    server = shutil.which("mariadbd", path=os.environ["PATH"] + ":/usr/sbin")
    begun = time.monotonic()
    process = subprocess.Popen([server, "--defaults-file=" + os.path.join(folder, "server.cnf")], cwd=os.path.join(folder, "database"),
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        while True:
            with socket.socket(socket.AF_UNIX) as client:
                try:
                    client.connect(path)
                    if client.recv(1):
                        return (time.monotonic() - begun) * 1000
                except OSError:
                    pass
            if process.poll() is not None or time.monotonic() - begun > LIMIT:
                raise RuntimeError("the server does not start")
            time.sleep(0.002)
    finally:
        process.terminate()
        process.wait()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--starts", type=int, default=9)
    parser.add_argument("--samples")
    options = parser.parse_args()
    runs, servers = [], []
    with tempfile.TemporaryDirectory(prefix="tzbench-") as parent:
        folder = os.path.join(parent, "office")
        start_program(options.program, folder)  # makes the data folder; after its first login the office is known
        for _ in range(options.starts):
            runs.append(start_program(options.program, folder))
            servers.append(start_server(folder))
    if not all("total" in run for run in runs):
        print("the log tells no phases")
        return 1
    for name in runs[0]:
        print(f"startup {name}: {statistics.median(run.get(name, 0) for run in runs):.0f} ms")
    print(f"bare server: {statistics.median(servers):.0f} ms")
    if options.samples:
        with open(options.samples, "w", encoding="utf-8") as file:
            json.dump({"total": [run["total"] for run in runs], "answering": [run["answering"] for run in runs],
                       "phase": [run["server"] for run in runs], "server": servers}, file)
    return 0


if __name__ == "__main__":
    sys.exit(main())
