#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Start of the program on an existing data folder to the painted login, server included: the median of each phase, and the
ratio of the whole to the start of its bare database server."""

import os
import re
import statistics
import subprocess
import sys
import tempfile

STARTS = 7
PHASE = re.compile(r"startup: (.+) (\d+)$")


def start(program, folder):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    subprocess.run([program, "--data-dir", folder, "--demo", "--demo-size", "300", "--quit-after-login-shown"],
                   env=environment, check=True, timeout=120, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    with open(os.path.join(folder, "logs", "tzhost.log"), encoding="utf-8") as log:
        found = [PHASE.search(line) for line in log]
    return {match.group(1): int(match.group(2)) for match in found if match}


def main():
    program = sys.argv[1]
    with tempfile.TemporaryDirectory(prefix="tzbench-") as parent:
        folder = os.path.join(parent, "office")
        start(program, folder)  # makes the data folder
        runs = [start(program, folder) for _ in range(STARTS)]
    if not runs[0] or "total" not in runs[0]:
        print("the log tells no phases")
        return 1
    medians = {name: statistics.median(run.get(name, 0) for run in runs) for name in runs[0]}
    for name, value in medians.items():
        print(f"startup {name}: {value:.0f} ms")
    server = next((value for name, value in medians.items() if "server" in name), 0)
    if server:
        print(f"start to painted login / database server alone: {medians['total'] / server:.2f}")
    return 0


sys.exit(main())
