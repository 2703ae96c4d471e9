# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The frame of every journey: a screen, a program, a time limit, and an honest exit code."""

import argparse
import os
import shutil
import signal
import sys
import time
import traceback

from .desktop import Desktop
from .pictures import Pictures


_began = time.monotonic()


class Interrupted(BaseException):
    """The journey was told to stop, or took too long. Not an error that a step may catch."""


def _arguments(description):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("program", help="the built tzhost")
    parser.add_argument("--pictures", metavar="FOLDER", help="take a numbered picture of every step")
    parser.add_argument("--go-on", action="store_true",
                        help="keep the pictures that are in the folder, and go on with their numbers")
    parser.add_argument("--driver", choices=("tree", "keyboard", "mouse"), default="tree",
                        help="how everything is done (accessibility interface, keys alone, mouse)")
    parser.add_argument("--seconds", type=int, default=160, help="the longest that the journey may take")
    parser.add_argument("--office", metavar="FOLDER", help="a prepared data folder; the journey works on a copy of it")
    parser.add_argument("--keep", metavar="FOLDER", help="where the data folder is left for the next journeys")
    return parser.parse_args()


def _stop(number, _frame):
    raise Interrupted("the time is over" if number == signal.SIGALRM else signal.Signals(number).name)


def run(steps, description):
    """Runs steps(office) on a screen of its own and exits. steps drives everything and raises on what is not right."""
    arguments = _arguments(description)
    for number in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        signal.signal(number, _stop)
    signal.alarm(arguments.seconds)
    status = 1
    try:
        with Desktop() as desktop:
            status = _play(desktop, arguments, steps)
            signal.alarm(0)
    except Interrupted as interruption:
        print(f"stopped: {interruption}", file=sys.stderr)
    word = "passed" if status == 0 else "FAILED"
    print(f"{os.path.basename(sys.argv[0])} ({arguments.driver}): {word} after {time.monotonic() - _began:.1f} s")
    sys.exit(status)


def _play(desktop, arguments, steps):
    # Only now is there a bus for the accessibility library to find.
    from .office import Office
    from .tree import ProgramGone

    folder = os.path.join(desktop.home, "office")
    if arguments.office:
        shutil.copytree(arguments.office, folder)
    office = Office(desktop, os.path.abspath(arguments.program), folder,
                    Pictures(arguments.pictures, desktop.environment, arguments.go_on), arguments.driver)
    try:
        steps(office)
        if arguments.keep:
            _keep(folder, arguments.keep)
        return 0
    except (Exception, Interrupted, ProgramGone) as error:
        traceback.print_exc()
        if isinstance(error, Interrupted):
            print(f"stopped: {error}", file=sys.stderr)
        signal.alarm(0)
        print(office.report_failure(), file=sys.stderr)
        return 1
    finally:
        office.close()


def _keep(folder, kept):
    shutil.rmtree(kept, ignore_errors=True)
    shutil.copytree(folder, kept)


def step(text):
    """Reports on the way what is being done."""
    print(f"{time.monotonic() - _began:6.1f} s  {text}", flush=True)


def check(right, what):
    """A check that must hold; what describes it."""
    if not right:
        raise AssertionError(f"not so: {what}")
