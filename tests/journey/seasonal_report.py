#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A season's return for the tax authority: invoices entered, rows seen, an address mended, printed, exported, paid."""

import os

from lib import books, documents, labels, report_labels, rights, season, taxfile, work
from lib.figures import same
from lib.journey import check, run, step
from lib.tree import filled_anew
from lib.waiting import wait_for

YEAR = 1405
SUMMER = 1
MINIMUM = 16_400_000
INSPECTION, CLEANING, PARKING = "کارشناسی و انتقال خودرو", "نظافت و صفرشویی", "اجاره پارکینگ"
BUYER = ("نیلوفر", "شایسته")
LONG_ADDRESS = ("تهران، خیابان ولیعصر، بالاتر از میدان ونک، خیابان گاندی جنوبی، کوچه بیست و یکم، پلاک 12، طبقه سوم،"
                " واحد 9")
ADDRESS = "تهران، خیابان گاندی جنوبی، کوچه بیست و یکم، پلاک 12، واحد 9"
BUYER_FIELDS = ((report_labels.NATIONAL_CODE, "0012345679"), (report_labels.AREA_CODE, "021"),
                (report_labels.TELEPHONE, "88776655"), (report_labels.POSTAL_CODE, "1517812345"),
                (report_labels.ADDRESS, LONG_ADDRESS), (report_labels.ECONOMIC_CODE, "411223344556"),
                (report_labels.TAX_ZONE, "1207"))
# Chosen by words; their numbers, 6, 23 and 2301, stand in the report.
BUYER_TAX = ((report_labels.PARTY_KIND, "مشمول حقیقی ماده 81 قانون مالیات‌های مستقیم"), (report_labels.PROVINCE, "تهران"),
             (report_labels.CITY, "تهران"))
SALE = (books.Line(INSPECTION, 2, 20_000_000), books.Line(CLEANING, 1, 17_500_000), books.Line(CLEANING, 1, 900_000))
PURCHASE = (books.Line(PARKING, 3, 25_000_000),)
DISCOUNT = 1_400_000
COMPANY = {report_labels.COMPANY_NAME: "نمایشگاه اتومبیل", report_labels.COMPANY_NAME_2: "آریا",
           report_labels.COMPANY_NATIONAL_CODE: "10100000006", report_labels.COMPANY_CITY: "تهران"}


def seasonal_report(office):
    opener = documents.Opener(office.desktop)
    papers = os.path.join(office.desktop.home, "papers")
    os.makedirs(papers)
    office.start()
    office.log_in_demo()

    step("services and invoices")
    enter_books(office)

    step("the season's rows")
    window = open_report(office)
    sales = gather(office, window, season.SALE, MINIMUM,
                   ("rows", "Summer's sales: contracts, invoice lines, and the small contracts in a row of their own"))
    check(sales.too_long_addresses == 2, f"both long lines of the sale have the long address: {sales.too_long_addresses}")

    step("an address is mended")
    mend_address(office, window)
    sales = gather(office, window, season.SALE, MINIMUM)
    check(sales.too_long_addresses == 0, "no address is too long any more")

    step("on paper")
    print_report(office, window, sales, papers)

    step("an export without the company's details is refused")
    office.database.rows("DELETE FROM Properties WHERE sSection='Company'")
    office.driver.press(report_labels.EXPORT, window)
    office.message(labels.WARNING, report_labels.NO_COMPANY,
                   picture=("no-company", "Without the company's details there is no file"))
    check(os.listdir(papers) == ["season.pdf"], f"nothing is written: {os.listdir(papers)}")
    give_company(office, window)

    step("the file of the sales")
    check_export(office, window, opener, papers, "Foroosh_Fasly_1405_2.mdb", "Foroush", season.SALE)
    step("once more, every contract for itself")
    every = gather(office, window, season.SALE, 0)
    check(len(every.rows) > len(sales.rows), "more rows without a lowest amount")
    check_export(office, window, opener, papers, "Foroosh_Fasly_1405_2.mdb", "Foroush", season.SALE)
    step("the file of the purchases")
    gather(office, window, season.PURCHASE, MINIMUM, ("purchases", "Summer's purchases"))
    check_export(office, window, opener, papers, "Kharid_Fasly_1405_2.mdb", "Kharid", season.PURCHASE)
    check(sorted(os.listdir(papers)) == ["Foroosh_Fasly_1405_2.mdb", "Kharid_Fasly_1405_2.mdb", "season.pdf"],
          f"nothing else is left in the folder: {os.listdir(papers)}")

    kept = season.reckon(office.database, season.SALE, SUMMER, YEAR, MINIMUM).rows

    step("the payable amount")
    check_payable(office, window)
    office.driver.press(labels.BACK, window)
    office.tree.no_window(report_labels.SEASONAL)

    step("a user without the right")
    rights.change_user(office, rights.NOBODY, rights.PASSWORD)
    office.driver.keys(office.main, "ctrl+9")
    office.message(labels.WARNING, labels.NOT_ALLOWED, picture=("no-right", "Without the right there is no report"))
    check(len(office.tree.windows()) == 1, "no window is left behind")
    office.leave()

    step("the same after a new start")
    office.start()
    office.log_in_demo()
    window = open_report(office)
    again = gather(office, window, season.SALE, MINIMUM, ("after-restart", "After a new start the rows are the same"))
    check(again.rows == kept, "the season's rows are those from before")
    buyers = [row for row in again.rows if row[season.FAMILY_NAME] == BUYER[1]]
    check({row[season.ADDRESS] for row in buyers} == {ADDRESS}, f"the mended address is kept: {buyers}")
    office.driver.keys(window, "Escape")
    office.tree.no_window(report_labels.SEASONAL)
    office.leave()


def enter_books(office):
    books.open_page(office, report_labels.SERVICES)
    books.add_service(office, INSPECTION, ("service", "A service is entered under the next code"))
    books.add_service(office, CLEANING)
    books.add_service(office, PARKING)
    office.pictures.take("services", "The services stand in their list")

    books.open_page(office, report_labels.INVOICES)
    editor = books.begin_invoice(office, report_labels.NEW_SALE, report_labels.SALE_WINDOW)
    office.pictures.take("sale-empty", "A sales invoice, still empty")
    pick_new_buyer(office, editor)
    office.driver.enter(report_labels.INVOICE_DATE, f"{YEAR}/05/20", editor)
    books.enter_lines(office, editor, SALE)
    office.driver.enter(report_labels.INVOICE_DISCOUNT, str(DISCOUNT), editor)
    sum_of_sale = sum(line.amount for line in SALE)
    books.check_total(office, editor, (sum_of_sale - DISCOUNT) * 1.1)
    office.pictures.take("sale", "A sales invoice with its lines, discount, tax and duty")
    books.save_invoice(office, editor, report_labels.SALE_WINDOW)

    editor = books.begin_invoice(office, report_labels.NEW_PURCHASE, report_labels.PURCHASE_WINDOW)
    seller = office.database.value("SELECT sName2 FROM Persons WHERE iStatus=0 AND iKind=2 ORDER BY iID LIMIT 1")
    work.pick_person(office, editor, books.INVOICE_PERSON, seller, seller)
    office.driver.enter(report_labels.INVOICE_DATE, f"{YEAR}/06/31", editor)
    books.enter_lines(office, editor, PURCHASE)
    books.check_total(office, editor, sum(line.amount for line in PURCHASE) * 1.1)
    office.pictures.take("purchase", "A purchase invoice")
    books.save_invoice(office, editor, report_labels.PURCHASE_WINDOW)
    office.pictures.take("invoices", "Both invoices stand in the list with their documents")
    for kind, lines, discount in ((season.SALE, SALE, DISCOUNT), (season.PURCHASE, PURCHASE, 0)):
        check_posted(office, kind, sum(line.amount for line in lines), discount)


def pick_new_buyer(office, editor):
    picker = work.open_picker(office, editor, books.INVOICE_PERSON)
    office.driver.press(labels.NEW, picker)
    person = office.tree.window(labels.NEW_PERSON)
    for label, text in ((labels.FIRST_NAME, BUYER[0]), (labels.FAMILY_NAME, BUYER[1]), *BUYER_FIELDS):
        office.driver.enter(label, text, person)
    for label, word in BUYER_TAX:
        office.driver.choose(label, word, person)
    office.pictures.take("buyer", "The buyer's address is longer than the tax authority takes")
    office.driver.press(labels.OK, person)
    office.tree.no_window(labels.NEW_PERSON)
    table = office.tree.find("tree", labels.PERSONS, picker)
    work.confirm_picker(office, picker, table, editor, books.INVOICE_PERSON, " ".join(BUYER))


def check_posted(office, kind, amount, discount):
    """The newest invoice of a kind has a document that balances, and its person's account moves by what is owed."""
    invoice = office.database.row(f"SELECT * FROM Factors WHERE iType={kind} ORDER BY iID DESC LIMIT 1")
    check(same(float(invoice["dAmount"]), amount) and same(float(invoice["dDiscount"]), discount), f"the invoice {invoice}")
    rows = f"FROM Docs WHERE iDocNum={invoice['iDocNum']} AND iFiscalYear={invoice['iFiscalYear']}"
    book = office.database.row(f"SELECT SUM(dBed) AS bed, SUM(dBes) AS bes {rows}")
    check(float(book["bed"]) > 0 and same(float(book["bed"]), float(book["bes"])), f"the document balances: {book}")
    owed = office.database.number(f"SELECT SUM(dBed)-SUM(dBes) {rows} AND iPersonID={invoice['iPersonID']}")
    check(same(abs(owed), (amount - discount) * 1.1) and (owed > 0) == (kind == season.SALE), f"the person owes {owed}")


def open_report(office):
    """The report, opened by its key. It gathers once by itself, for the season that today's date proposes."""
    office.driver.keys(office.main, "ctrl+9")
    window = office.tree.window(report_labels.SEASONAL)
    proposed = next(number for number, name in enumerate(report_labels.SEASONS)
                    if office.tree.find("radio button", name, window).checked)
    year = int(office.tree.find("text", report_labels.YEAR, window).number)
    await_rows(office, window, season.reckon(office.database, season.SALE, proposed, year, MINIMUM))
    return window


def await_rows(office, window, wanted, picture=None):
    if wanted.too_long_addresses:
        text = report_labels.ADDRESSES_TOO_LONG.format(wanted.too_long_addresses)
        office.message(labels.WARNING, text, picture=picture and ("too-long", "Addresses that are too long are told of"))
    button = office.tree.find("push button", report_labels.GATHER, window)
    wait_for(lambda: button.enabled, "the gathering to end")
    table = office.tree.find("tree", report_labels.SEASONAL, window)
    wait_for(lambda: table.row_count == len(wanted.rows), lambda: f"{len(wanted.rows)} rows, not {table.row_count}")
    return table


def gather(office, window, kind, minimum, picture=None):
    """Shows the summer of the kind and checks every cell; returns the expected rows."""
    office.driver.option(report_labels.SEASONS[SUMMER], window)
    office.driver.option(report_labels.SALES if kind == season.SALE else report_labels.PURCHASES, window)
    office.driver.enter(report_labels.YEAR, str(YEAR), window)
    office.driver.enter(report_labels.MINIMUM, str(minimum), window)
    wanted = season.reckon(office.database, kind, SUMMER, YEAR, minimum)
    # The button is enabled before the program has met the key as well as after the gathering; only the rows tell the two apart.
    with filled_anew(office.tree.find("tree", report_labels.SEASONAL, window), "the season"):
        office.driver.press(report_labels.GATHER, window)
    table = await_rows(office, window, wanted, picture)
    check(tuple(title.rstrip("*") for title in table.headers()) == report_labels.TITLES, f"the titles {table.headers()}")
    found = season.differences(wanted, cells_of(table))
    check(not found, f"the rows are those of the tables: {found}")
    for label, total in zip(report_labels.TOTALS, wanted.totals):
        shown = office.tree.find("text", label, window)
        check(abs(shown.number - total) <= 1, f"{label!r} is {shown.text}, not {total}")
    if picture:
        office.pictures.take(*picture)
    return wanted


def cells_of(table):
    return table.texts(len(report_labels.TITLES))


def mend_address(office, window):
    """Opens the person of the row and shortens the address."""
    table = office.tree.find("tree", report_labels.SEASONAL, window)
    rows = [number for number, cells in enumerate(cells_of(table)) if cells[season.ADDRESS] == LONG_ADDRESS]
    office.pictures.take("long-address", "The long address stands out")
    work.open_row(office, table, rows[0], window, season.ADDRESS)
    editor = office.tree.window(report_labels.PERSON_EDIT)
    check(office.tree.find("text", labels.FAMILY_NAME, editor).text == BUYER[1], "the row's party is in the editor")
    office.driver.enter(report_labels.ADDRESS, ADDRESS, editor)
    office.pictures.take("address", "Its person is open, and the address is shortened")
    office.driver.press(labels.OK, editor)
    office.tree.no_window(report_labels.PERSON_EDIT)
    for row in rows:
        wait_for(lambda row=row: table.cell(row, season.ADDRESS).name == ADDRESS, "the row to show the new address")
    check(table.selected_rows == [rows[0]], "the row stays selected")
    office.pictures.take("mended", "The rows of that person have followed")


def print_report(office, window, sales, papers):
    office.driver.press(labels.PRINT, window)
    preview = office.tree.window(labels.PREVIEW)
    office.pictures.take("preview", "The season on paper")
    pdf = work.save_file(office, preview, labels.SAVE_PDF, os.path.join(papers, "season.pdf"))
    pages = documents.pdf_pages(pdf)
    text = "\n".join(pages)
    for total in sales.totals:
        check(f"{round(total):,}" in text, f"{total:,.0f} stands on paper:\n{text}")
    check(documents.line_holds(text, f"{BUYER[1]} 411223344556"), f"the invoice's party stands on paper:\n{text}")
    code = office.database.value(f"SELECT iCode FROM Services WHERE sName='{INSPECTION}'")
    check(documents.line_holds(text, f"{code} {SALE[0].amount:,.0f}"), f"the invoice's line stands on paper:\n{text}")
    office.pictures.take_pages("season", "The season as a PDF document", pdf)
    office.driver.press(labels.BACK, preview)
    office.tree.no_window(labels.PREVIEW)


def give_company(office, window):
    office.driver.press(report_labels.COMPANY, window)
    dialog = office.tree.window(report_labels.COMPANY_WINDOW)
    for label, text in COMPANY.items():
        office.driver.enter(label, text, dialog)
    office.pictures.take("company", "The company's own details")
    office.driver.press(labels.OK, dialog)
    office.tree.no_window(report_labels.COMPANY_WINDOW)


def check_export(office, window, opener, folder, name, table, kind):
    """Exports the rows that are shown, and reads the file back."""
    path = os.path.join(folder, name)
    before = os.stat(path).st_ino if os.path.exists(path) else None
    office.driver.press(report_labels.EXPORT, window)
    work.answer_file_window(office, report_labels.CHOOSE_FOLDER, folder, ("folder", "The folder is asked for"))
    office.message(labels.NOTICE, report_labels.EXPORTED, picture=(f"exported-{table.lower()}", "The file is written"))
    wait_for(lambda: opener.asked() and opener.asked()[-1] == folder, "the folder to be opened")
    check(before is None or os.stat(path).st_ino != before, "another file has taken the place of the first")

    file = taxfile.TaxFile(path)
    check(file.tables == taxfile.TABLES, f"the tables {file.tables}")
    company = file.records("Moshakhasat")
    check(len(company) == 1 and company[0]["FirstName"] == COMPANY[report_labels.COMPANY_NAME]
          and company[0]["NationalCode"] == COMPANY[report_labels.COMPANY_NATIONAL_CODE], f"the company's record {company}")
    heads = file.records(table)
    check(len(heads) == 1 and (heads[0]["Season"], heads[0]["Year"]) == (str(SUMMER + 1), str(YEAR)), f"the head {heads}")
    rows = cells_of(office.tree.find("tree", report_labels.SEASONAL, window))
    check(file.count(f"{table}_Detail") == len(rows), "a record for each row")
    found = taxfile.differences(rows, file.records(f"{table}_Detail"), heads[0]["ID"])
    check(not found, f"the records are the list's rows: {found}")
    other = "Kharid" if table == "Foroush" else "Foroush"
    check(file.count(other) == 0 and file.count(f"{other}_Detail") == 0, "nothing of the other kind")


def check_payable(office, window):
    first, end = season.season_bounds(SUMMER, YEAR)
    database = office.database
    commissions = database.number(f"SELECT 2*SUM(dCommission) FROM AutomobilContracts WHERE dateContract>='{first}'"
                                  f" AND dateContract<'{end}' AND iStatus=0")

    def lines(kind):
        return database.number("SELECT SUM(l.dCount*l.dPrice) FROM FactorStuffs l JOIN Factors f ON f.iID=l.iFactorNum"
                               f" WHERE f.date>='{first}' AND f.date<'{end}' AND f.iStatus=0 AND f.iType={kind}"
                               " AND l.iServiceID>0 AND f.iPersonID>0")
    # Invoice lines count on the side that the authority's form gives them, which is not that of their invoice.
    sales, purchases = commissions + lines(season.PURCHASE), lines(season.SALE)
    check(min(commissions, lines(season.SALE), lines(season.PURCHASE)) > 0, "each of the three sums is there")
    office.driver.press(report_labels.PAYABLE, window)
    dialog = office.tree.window(report_labels.PAYABLE_WINDOW)
    for label, amount in ((report_labels.PAYABLE_SALES, sales), (report_labels.PAYABLE_PURCHASES, purchases),
                          (report_labels.PAYABLE_RESULT, sales - purchases)):
        shown = office.tree.find("text", label, dialog)
        check(same(shown.number, amount), f"{label!r} is {shown.text}, not {amount:,.0f}")
    office.pictures.take("payable", "What the season comes to")
    office.driver.press(labels.BACK, dialog)
    office.tree.no_window(report_labels.PAYABLE_WINDOW)


if __name__ == "__main__":
    run(seasonal_report, __doc__)
