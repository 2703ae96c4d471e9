# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a program takes of the computer: its memory, how often it wakes, and what it asks its server meanwhile."""

import os
import time
from contextlib import contextmanager


def memory(process):
    """In KiB: resident (with what several programs have), pss (with its share of that), private (what would be free without it), and peak, the
    most that was resident."""
    figures = {}
    with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as rollup:
        for line in rollup:
            name, _, rest = line.partition(":")
            if rest.endswith("kB\n"):
                figures[name] = int(rest.split()[0])
    with open(f"/proc/{process}/status", encoding="utf-8") as status:
        peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))
    return {"resident": figures["Rss"], "pss": figures["Pss"], "private": figures["Private_Clean"] + figures["Private_Dirty"], "peak": peak}


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


def is_settled(process, database):
    """What was begun before is over: no statement runs at the server, which a program may await without a wake, and for a second next to nothing
    woke the program."""
    woken = sum(wakes_meanwhile(process, 1).values())
    running = database.rows("SELECT COUNT(*) AS many FROM information_schema.PROCESSLIST WHERE COMMAND NOT IN ('Sleep','Daemon') AND ID<>CONNECTION_ID()")
    return woken <= 3 and int(running[0]["many"]) == 0


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
