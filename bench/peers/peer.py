# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""What another library does, asked for by a benchmark: a line comes, the work is done, a line goes. So the start of Python and what it loads is no part of
the time, and the benchmark can take turns."""

import sys


def serve(work):
    print("ready", flush=True)
    for _ in sys.stdin:
        work()
        print("done", flush=True)
