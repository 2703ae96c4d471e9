#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""What the program and its server take of the memory in offices of different sizes, idle and at most, and whether they sleep when
nobody is at the desk: the real program on a screen of its own, driven by the keyboard.

    footprint.py TZHOST --office NAME=FOLDER... [--copy] [--samples FILE]

FOLDER is the data folder of a demo office that was filled further; with --copy a copy is used. The samples end in the NAME of the
office."""

import argparse
import json
import os
import shutil
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "journey"))
from lib.desktop import Desktop  # noqa: E402 - the path comes first
from lib import car_labels, footprint  # noqa: E402
from lib.pictures import Pictures  # noqa: E402
from lib.waiting import TimeRanOut, wait_for  # noqa: E402

STILL_SECONDS = 20
LIMIT = 120  # seconds, for a list of the largest office


def figures(office):
    """Idle, and then with both lists, each with all its rows in front of the user; by name, one after the other."""
    processes = {"program": office.process_id, "server": office.server_process_id}
    wait_for(lambda: footprint.is_settled(office.process_id, office.database), "the program to settle", seconds=LIMIT)
    # Before the wait: a system that takes back what is not touched would make the figure prettier than an office's.
    for what, process in processes.items():
        memory = footprint.memory(process)
        yield what + "Idle", memory["resident"] / 1024
        yield what + "Private", memory["private"] / 1024
    with footprint.statements_meanwhile(office.database) as statements:
        woken = sum(footprint.wakes_meanwhile(office.process_id, STILL_SECONDS).values())
    yield "wakes", woken / STILL_SECONDS
    yield "statements", len(statements)
    for title in ("قرارداد", car_labels.CARS):
        table = office.open_list(title)
        wait_for(lambda table=table: table.row_count > 0, title, seconds=LIMIT)
    wait_for(lambda: footprint.is_settled(office.process_id, office.database), "the program to settle", seconds=LIMIT)
    for what, process in processes.items():
        memory = footprint.memory(process)
        yield what + "AtWork", memory["resident"] / 1024
        yield what + "Peak", memory["peak"] / 1024


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--office", nargs="+", required=True, metavar="NAME=FOLDER")
    parser.add_argument("--copy", action="store_true")
    parser.add_argument("--samples")
    options = parser.parse_args()
    samples = {}
    failed = False
    with Desktop() as desktop:
        # Only now is there a bus for the accessibility library to find; it keeps to the first one, so all offices are on this screen.
        from lib.office import Office
        for choice in options.office:
            name, folder = choice.split("=", 1)
            if options.copy:
                folder = shutil.copytree(folder, os.path.join(desktop.home, name))
            office = Office(desktop, os.path.abspath(options.program), os.path.abspath(folder), Pictures(None, desktop.environment, False), "keyboard")
            try:
                office.start()
                office.log_in_demo()
                for what, value in figures(office):
                    print(f"{what}_{name}: {value:.1f}", flush=True)
                    samples[f"{what}_{name}"] = [value]
                # It is ended below, not left: the backup with which it closes takes minutes in an office of a million.
            except TimeRanOut as error:
                # What was measured before it counts.
                print(f"{folder}: {error}", flush=True)
                failed = True
            finally:
                office.close()
    if options.samples:
        with open(options.samples, "w", encoding="utf-8") as file:
            json.dump(samples, file)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
