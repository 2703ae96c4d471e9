#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Income and expenses of a year: an account and a document by hand, the report with its totals, an account's documents."""

import datetime
import os

from lib import books, documents, labels, report_labels, shamsi, work
from lib.journey import check, run, step
from lib.waiting import wait_for

YEAR = 1405
GENERAL = ("6201", "هزینه های اداری")
RENT = ("620101", "اجاره محل")
CASH = "110101"
COMMISSION = "410202"
RENT_AMOUNT = 80_000_000
WHOLE_YEAR = (shamsi.to_date(YEAR, 1, 1), shamsi.to_date(YEAR, 12, 29))
ONE_MONTH = (shamsi.to_date(YEAR, 6, 1), shamsi.to_date(YEAR, 6, 31))
DEBIT, CREDIT, BALANCED = "بد", "بس", "-"


def comprehensive_report(office):
    papers = os.path.join(office.desktop.home, "papers")
    os.makedirs(papers)
    office.start()
    office.log_in_demo()

    step("an account, and a document by hand")
    add_accounts(office)
    number = post_rent(office)

    step("income and expenses of the year")
    window = open_report(office)
    rows = check_rows(office, window, WHOLE_YEAR)
    check([row for row in rows if row[0] == RENT[0]] == [(*RENT, RENT_AMOUNT, DEBIT)], f"the rent is an expense: {rows}")
    office.pictures.take("year", "Income and expenses of the fiscal year, as a list and as a chart")

    step("an account's documents")
    check_sheet(office, window, RENT[0], [(str(number), RENT_AMOUNT, 0.0)], ("rent", "The documents of one account"))
    show_document(office, window, RENT[0], number)
    check_sheet(office, window, COMMISSION, entries(office, COMMISSION, WHOLE_YEAR),
                ("commission", "An account with a document for each contract"))

    step("one month")
    enter_dates(office, window, ONE_MONTH)
    month = check_rows(office, window, ONE_MONTH)
    check(month != rows, "a month is not the year")
    office.pictures.take("month", "The same for one month")
    check_sheet(office, window, COMMISSION, entries(office, COMMISSION, ONE_MONTH))

    step("on paper")
    print_report(office, window, month, papers)
    office.driver.press(labels.CANCEL, window)
    office.tree.no_window(report_labels.COMPREHENSIVE)
    office.leave()

    step("the same after a new start")
    office.start()
    office.log_in_demo()
    window = open_report(office)
    check(check_rows(office, window, WHOLE_YEAR) == rows, "the rows are those from before")
    office.driver.keys(window, "Escape")
    office.tree.no_window(report_labels.COMPREHENSIVE)
    office.leave()


def add_accounts(office):
    chart = books.open_page(office, report_labels.CHART)
    office.pictures.take("chart", "The chart of accounts with the balance of each")
    for command, title, (code, name) in ((report_labels.NEW_GENERAL, report_labels.GENERAL_WINDOW, GENERAL),
                                         (report_labels.NEW_BELOW, report_labels.SUBSIDIARY_WINDOW, RENT)):
        office.command(command)
        editor = office.tree.window(title)
        office.driver.enter(report_labels.ACCOUNT_CODE, code, editor)
        office.driver.enter(report_labels.ACCOUNT_NAME, name, editor)
        office.pictures.take(f"account-{code}", "An account is added to the chart")
        office.driver.press(labels.OK, editor)
        office.tree.no_window(title)
        # The list selects it as it shows it, and the next account is added below the one that is selected.
        wait_for(lambda code=code: any(code in row.values() for row in chart.rows()), f"the account {code} in the chart")
    check(office.database.value(f"SELECT iHesabKolCode FROM HesabMoeen WHERE iCode={RENT[0]}") == GENERAL[0],
          "the new account stands below the one that was selected")


def post_rent(office):
    """Returns the number of the document."""
    books.open_page(office, report_labels.DOCUMENTS)
    office.command(report_labels.NEW_DOCUMENT)
    editor = office.tree.window(report_labels.NEW_DOCUMENT)
    office.driver.enter(report_labels.DOCUMENT_DATE, f"{YEAR}/06/15", editor)
    office.driver.enter(report_labels.DOCUMENT_DESCRIPTION, "اجاره شهریور", editor)
    books.enter_document_rows(office, editor, ((RENT[0], RENT_AMOUNT, 0), (CASH, 0, RENT_AMOUNT)))
    office.pictures.take("document", "A document by hand, which balances")
    office.driver.press(labels.OK, editor)
    office.tree.no_window(report_labels.NEW_DOCUMENT)
    document = office.database.row("SELECT * FROM Documents ORDER BY iID DESC LIMIT 1")
    check(document["sDesc"] == "اجاره شهریور" and document["iFiscalYear"] == str(YEAR), f"the document {document}")
    office.pictures.take("documents", "The document stands in the list with its rows")
    return int(document["iNum"])


def open_report(office):
    office.open_contracts()
    office.command(report_labels.COMPREHENSIVE)
    window = office.tree.window(report_labels.COMPREHENSIVE)
    for label, day in zip((report_labels.FROM_DATE, report_labels.TO_DATE), WHOLE_YEAR):
        shown = office.tree.find("text", label, window).text
        check(shown == shamsi.text(day), f"{label!r} opens on the fiscal year, not {shown!r}")
    return window


def reckon(office, days):
    """The rows that the list must show, each with code, name, amount and nature, from the tables alone."""
    first, last = days
    end = last + datetime.timedelta(1)
    rows, difference = [], 0.0
    for heading, total, groups in ((report_labels.INCOME, report_labels.INCOME_TOTAL, "41"),
                                   (report_labels.EXPENSES, report_labels.EXPENSES_TOTAL, "61,62")):
        rows.append(("", heading, None, ""))
        side = 0.0
        # In this office no account lies deeper than two levels, and a general one without any below it has no documents.
        check(office.database.number("SELECT COUNT(*) FROM HesabTafsily") == 0, "there are no detail accounts")
        for account in office.database.rows(
                "SELECT m.iCode, m.sName, SUM(d.dBed)-SUM(d.dBes) AS net FROM HesabMoeen m"
                " JOIN HesabKol k ON k.iCode=m.iHesabKolCode AND k.iStatus=0"
                " JOIN Docs d ON d.iHesabMoeenCode=m.iCode"
                " JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear AND h.iStatus=0"
                f" WHERE m.iStatus=0 AND k.iCode DIV 100 IN ({groups}) AND h.date>='{first}' AND h.date<'{end}'"
                " GROUP BY m.iCode, m.sName ORDER BY m.iCode"):
            net = float(account["net"])
            side += net
            if abs(net) >= 0.0001:
                rows.append((account["iCode"], account["sName"], *amount_and_nature(net)))
        rows.append(("", total, *amount_and_nature(side)))
        difference += side
    rows.append(("", report_labels.DIFFERENCE, *amount_and_nature(difference)))
    return rows


def amount_and_nature(net):
    return abs(round(net)), DEBIT if net >= 0.0001 else CREDIT if net <= -0.0001 else BALANCED


def shown_rows(table):
    rows = []
    for cells in table.texts(4):
        amount = float(cells[2].replace(",", "")) if cells[2] else None
        rows.append((cells[0], cells[1], amount, cells[3]))
    return rows


def check_rows(office, window, days):
    table = office.tree.find("tree", report_labels.COMPREHENSIVE, window)
    wanted = reckon(office, days)
    wait_for(lambda: shown_rows(table) == wanted, lambda: f"the rows to be {wanted}, not {shown_rows(table)}")
    return wanted


def enter_dates(office, window, days):
    for label, day in zip((report_labels.FROM_DATE, report_labels.TO_DATE), days):
        office.driver.enter(label, shamsi.text(day), window)
    office.driver.press(labels.SEARCH, window)


def entries(office, account, days):
    """The rows of an account's documents, in the order of their dates."""
    first, last = days
    return [(row["iNum"], float(row["dBed"]), float(row["dBes"])) for row in office.database.rows(
        "SELECT h.iNum, d.dBed, d.dBes FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear"
        f" WHERE d.iHesabMoeenCode={account} AND h.iStatus=0 AND h.date>='{first}'"
        f" AND h.date<'{last + datetime.timedelta(1)}' ORDER BY h.date, h.iNum, d.iID")]


def open_sheet(office, window, account):
    """Opens an account from its row."""
    table = office.tree.find("tree", report_labels.COMPREHENSIVE, window)
    row = wait_for(lambda: [number for number, cells in enumerate(shown_rows(table)) if cells[0] == account],
                   f"the account {account} in the report")[0]
    work.open_row(office, table, row, window)
    return office.tree.window(f"{report_labels.ACCOUNT_SHEET} {account}")


def check_sheet(office, window, account, wanted, picture=None):
    sheet = open_sheet(office, window, account)
    table = office.tree.find("tree", report_labels.ACCOUNT_SHEET, sheet)

    def shown():
        return [(row[report_labels.COLUMN_SHEET_DOCUMENT], *(float(row[column].replace(",", "") or 0) for column in
                (report_labels.COLUMN_DEBIT, report_labels.COLUMN_CREDIT)))
                for row in table.rows() if row[report_labels.COLUMN_SHEET_DOCUMENT]]
    wait_for(lambda: shown() == wanted, lambda: f"the documents {wanted}, not {shown()}")
    if picture:
        office.pictures.take(*picture)
    office.driver.press(labels.BACK, sheet)
    office.tree.no_window(report_labels.ACCOUNT_SHEET)


def show_document(office, window, account, number):
    sheet = open_sheet(office, window, account)
    table = office.tree.find("tree", report_labels.ACCOUNT_SHEET, sheet)
    wait_for(lambda: table.row_count > 0, "the documents of the account")
    work.open_row(office, table, table.row_count - 1, sheet)
    document = office.tree.window(f"{report_labels.DOCUMENT_WINDOW} {number}")
    office.pictures.take("shown-document", "And from the account's sheet its document")
    office.driver.press(labels.BACK, document)
    office.tree.no_window(report_labels.DOCUMENT_WINDOW)
    office.driver.press(labels.BACK, sheet)
    office.tree.no_window(report_labels.ACCOUNT_SHEET)


def print_report(office, window, rows, papers):
    office.driver.press(labels.PRINT, window)
    preview = office.tree.window(labels.PREVIEW)
    pdf = work.save_file(office, preview, labels.SAVE_PDF, os.path.join(papers, "year.pdf"))
    text = "\n".join(documents.pdf_pages(pdf))
    for code, name, amount, _ in rows:
        if amount is not None:
            check(documents.line_holds(text, f"{code} {name} {amount:,}"), f"{name!r} stands on paper:\n{text}")
    office.pictures.take_pages("paper", "The report as a PDF document", pdf)
    office.driver.press(labels.BACK, preview)
    office.tree.no_window(labels.PREVIEW)


if __name__ == "__main__":
    run(comprehensive_report, __doc__)
