# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Users and their rights, entered in the host's own windows."""

from . import labels
from .drivers import KeyboardDriver
from .waiting import wait_for

READER = "khanandeh"
NOBODY = "mehman"
PASSWORD = "kelid-e-khane"


def add_user(office, user, granted):
    """Adds a user in the page of users and ticks the rights, each a pair of form caption and right caption."""
    office.driver.open_menu(labels.MANAGEMENT_MENU, office.main)
    office.driver.menu_entry(labels.USERS, office.main)
    table = office.tree.find("tree", labels.USERS, office.main)
    office.driver.press(labels.NEW_USER, office.main)
    dialog = office.tree.window(labels.USER_WINDOW)
    for label, text in ((labels.USER, user), (labels.FIRST_NAME, user), (labels.PASSWORD, PASSWORD),
                        (labels.REPEATED, PASSWORD)):
        office.driver.enter(label, text, dialog)
    office.driver.press(labels.OK, dialog)
    office.tree.no_window(labels.USER_WINDOW)
    row = wait_for(lambda: _row_of(table, user), f"the user {user!r} in the list")[0]
    if granted:
        office.driver.select_row(table, row)
        _grant(office, granted)


def _row_of(table, user):
    return [i for i, row in enumerate(table.rows()) if row[labels.COLUMN_USER] == user]


def _grant(office, granted):
    office.command(labels.RIGHTS)
    dialog = office.tree.window(labels.RIGHTS)
    grid = office.tree.find("table", labels.RIGHTS_GRID, dialog)
    # The grid of ticks is worked with the keyboard: arrows move, the space bar ticks.
    KeyboardDriver(office.tree, office.input).focus(grid, dialog)
    for form, right in granted:
        column = labels.RIGHT_COLUMNS[right]
        row = next(row for row in range(grid.row_count) if grid.cell(row, column).name == f"{form} - {right}")
        cell = grid.cell(row, column)
        if cell.checked:
            # A right within a form brings the access to it.
            continue
        # From right to left the next column is on the left.
        office.input.keys("ctrl+Home", *["Down"] * row, *["Left"] * column, "space")
        wait_for(lambda cell=cell: cell.checked, f"the right {right!r} on {form!r} to be ticked")
    office.driver.press(labels.OK, dialog)
    office.tree.no_window(labels.RIGHTS)


def change_user(office, user, password):
    """Logs out so that the next user can log in, in the same run of the program."""
    office.driver.open_menu(labels.PROGRAM_MENU, office.main)
    office.driver.menu_entry(labels.OTHER_USER, office.main)
    office.log_in(user, password)
