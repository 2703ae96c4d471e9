# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Services and invoices, entered in the host's own windows."""

from dataclasses import dataclass

from . import labels, report_labels
from .figures import same
from .drivers import KeyboardDriver
from .waiting import wait_for
from .work import PersonField


INVOICE_PERSON = PersonField(report_labels.INVOICE_PERSON, report_labels.INVOICE_PERSON + " ...",
                             report_labels.INVOICE_PERSON)


@dataclass(frozen=True)
class Line:
    """A line of an invoice: a service by its name, how many, at what price."""
    service: str
    count: float
    price: float

    @property
    def amount(self):
        return self.count * self.price


def open_page(office, caption):
    """A list of the books, opened from the menu; returns its table."""
    office.driver.open_menu(labels.BOOK_MENU, office.main)
    office.driver.menu_entry(caption, office.main)
    return office.tree.find("tree", caption, office.main)


def add_service(office, name, picture=None):
    """In the list of services, which is in front; returns the service's code."""
    table = office.tree.find("tree", report_labels.SERVICES, office.main)
    office.command(report_labels.NEW_SERVICE)
    editor = office.tree.window(report_labels.SERVICE_WINDOW)
    code = office.tree.find("text", report_labels.SERVICE_CODE, editor).text
    office.driver.enter(report_labels.SERVICE_NAME, name, editor)
    if picture:
        office.pictures.take(*picture)
    office.driver.press(labels.OK, editor)
    office.tree.no_window(report_labels.SERVICE_WINDOW)
    wait_for(lambda: any(row[report_labels.COLUMN_SERVICE_NAME] == name and row[report_labels.COLUMN_SERVICE_CODE] == code
                         for row in table.rows()), f"the service {name!r} in the list")
    return code


def begin_invoice(office, command, title):
    """In the list of invoices, which is in front; returns the editor's window."""
    office.command(command)
    return office.tree.window(title)


def enter_lines(office, editor, lines):
    """Types the lines into the grid, as a user does: Enter goes from cell to cell and on to a new line."""
    grid = office.tree.find("table", report_labels.INVOICE_LINES, editor)
    KeyboardDriver(office.tree, office.input).focus(grid, editor)
    office.input.keys("ctrl+Home")
    for row, line in enumerate(lines):
        wait_for(lambda row=row: grid.row_count > row, f"line {row + 1} to write into")
        _enter_choice(office, grid, row, line.service)
        for text in ("", f"{line.count:g}", f"{line.price:.0f}"):
            if text:
                office.input.type(text)
            office.input.keys("Return")
        wait_for(lambda row=row, line=line: same(_number(grid, row, 4), line.amount),
                 lambda row=row: f"line {row + 1} to come to its amount, not {_line(grid, row)}")
    return grid


def _enter_choice(office, grid, row, text):
    """A code or a name, into the first cell of the row, which then shows both. Keys that come while the list of what fits is being
    closed would go nowhere."""
    office.input.type(text)
    office.input.keys("Return")

    def taken():
        shown = grid.cell(row, 0).name
        return text in shown and shown != text
    wait_for(taken, lambda: f"{text} to be taken, not {_line(grid, row)}")


def enter_document_rows(office, editor, rows):
    """Types the rows of a document by hand, each an account's code, what it owes and what it is owed."""
    grid = office.tree.find("table", report_labels.DOCUMENT_ROWS, editor)
    KeyboardDriver(office.tree, office.input).focus(grid, editor)
    office.input.keys("ctrl+Home")
    for row, (account, debit, credit) in enumerate(rows):
        wait_for(lambda row=row: grid.row_count > row, f"row {row + 1} to write into")
        _enter_choice(office, grid, row, account)
        # Person and description stay empty.
        for text in ("", "", str(debit or ""), str(credit or "")):
            if text:
                office.input.type(text)
            office.input.keys("Return")
        wait_for(lambda row=row, account=account: grid.cell(row, 0).name.startswith(f"{account} ")
                 and same(_number(grid, row, 3) + _number(grid, row, 4), rows[row][1] + rows[row][2]),
                 lambda row=row: f"row {row + 1} to be taken, not {_line(grid, row)}")


def _line(grid, row):
    return [grid.cell(row, column).name for column in range(len(report_labels.LINE_COLUMNS))]


def _number(grid, row, column):
    digits = grid.cell(row, column).name.replace(",", "")
    return float(digits or 0)


def check_total(office, editor, total):
    shown = office.tree.find("text", report_labels.INVOICE_TOTAL, editor)
    wait_for(lambda: same(shown.number, total), lambda: f"the invoice to come to {total:,.0f}, not {shown.text!r}")


def save_invoice(office, editor, title):
    office.driver.press(labels.OK, editor)
    office.tree.no_window(title)
