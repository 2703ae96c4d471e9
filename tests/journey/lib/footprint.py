# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a program takes of the computer: its memory, how often it wakes, and what it asks its server meanwhile."""

import os
import time
from contextlib import contextmanager


def memory(process):
    """In KiB: pss (its share of what several programs have), private (what would be free without it), peak (resident)."""
    figures = {}
    with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as rollup:
        for line in rollup:
            name, _, rest = line.partition(":")
            if rest.endswith("kB\n"):
                figures[name] = int(rest.split()[0])
    with open(f"/proc/{process}/status", encoding="utf-8") as status:
        peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))
    return {"pss": figures["Pss"], "private": figures["Private_Clean"] + figures["Private_Dirty"], "peak": peak}


def wakes(process):
    """How often its threads have gone to sleep so far, by their id and name: each time something woke them."""
    found = {}
    for thread in os.listdir(f"/proc/{process}/task"):
        with open(f"/proc/{process}/task/{thread}/status", encoding="utf-8") as status:
            fields = dict(line.rstrip("\n").split(":\t", 1) for line in status if ":\t" in line)
        found[f"{thread} {fields['Name']}"] = int(fields["voluntary_ctxt_switches"])
    return found


def wakes_meanwhile(process, seconds):
    """The same of a span of time, of the threads that woke at all."""
    before = wakes(process)
    time.sleep(seconds)
    return {name: count - before.get(name, 0) for name, count in wakes(process).items() if count > before.get(name, 0)}


@contextmanager
def statements_meanwhile(database):
    """Fills the list that it gives with what others than this send the server until the end."""
    sent = []
    database.rows("SET GLOBAL log_output='TABLE'")
    database.rows("TRUNCATE mysql.general_log")
    own = database.rows("SET GLOBAL general_log=ON; SELECT CONNECTION_ID() AS own")[0]["own"]
    try:
        yield sent
        sent += [f"{row['command_type']}: {row['text']}" for row in database.rows(
            "SELECT command_type, REPLACE(CONVERT(argument USING utf8mb4),'\\n',' ') AS text FROM mysql.general_log"
            f" WHERE thread_id NOT IN ({own},CONNECTION_ID()) ORDER BY event_time")]
    finally:
        database.rows("SET GLOBAL general_log=OFF")
