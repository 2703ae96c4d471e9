# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Servers, desks and wires of the tests of faults."""

import os
import sys

# Waiting, processes and the database's client are those of the journeys.
sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "journey"))

# The window that shows what two desks changed at once.
CONFLICT = "CDlgRowConflict"
CONFLICT_BUTTONS = {"theirs": "تغییر او بماند", "mine": "تغییر من بماند", "back": "بازگشت به پنجره"}
# The administrator of the prepared office.
CLERK = "modir"
# Another administrator of it.
OTHER_CLERK = "sara"
# Ends the wait for a server that does not answer.
GIVE_UP = "انصراف"
# What is said where nobody can tell whether something was saved.
UNKNOWN = "نامعلوم"
