#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A cashier's day: a commission, half an instalment, three cheques, a slip taken back, a receipt for each, a statement."""

import os

from lib import documents, labels, money_labels, sound_books, work
from lib.figures import same
from lib.journey import check, run, step
from lib.waiting import wait_for

import instalment_sale as sale

BUYER = sale.BUYER
HALF = sale.INSTALMENT // 2
CHEQUE = sale.CHECKS // 3
CHEQUES = [(f"60110000000000{number:02}", f"55102{number}") for number in range(3)]
REASON = "شناسه چک دیگری بود"
MISTYPED = 1


def money_of_a_day(office):
    papers = os.path.join(office.desktop.home, "papers")
    os.makedirs(papers)
    office.start()
    office.log_in()
    table = office.open_contracts()
    step("an instalment sale")
    write_sale(office, table)

    step("the commission of the buyer")
    settle_commission(office, table)
    step("half an instalment")
    receive_half(office)
    step("three cheques, and one that was mistyped")
    receipts = open_books(office, money_labels.RECEIPTS)
    for number in range(len(CHEQUES)):
        receive_cheque(office, receipts, number)
    void_mistyped(office, receipts)
    receive_cheque(office, receipts, MISTYPED)

    step("a receipt for each, on paper")
    print_receipts(office, receipts, papers)
    step("the buyer's statement")
    check_statement(office, papers)
    step("the books")
    check_books(office)
    office.leave()


def write_sale(office, table):
    editor = sale.begin_contract(office)
    work.write_car(office, editor)
    label, _, amount = sale.MONEY_TERMS[0]
    office.driver.enter(label, str(amount), editor)
    plan = sale.store_plan(office, editor)
    office.driver.press(labels.BACK, plan)
    office.tree.no_window(labels.PLAN)
    sale.save(office, editor, labels.INSTALMENTS_NEW)
    wait_for(lambda: table.row_count == 2, "the sale in the list")
    sale.select_sale(office, table)


def owes(office):
    """What the books say that the buyer owes."""
    return office.database.number(
        "SELECT SUM(d.dBed-d.dBes) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear "
        "WHERE h.iStatus=0 AND d.iHesabMoeenCode=110301 AND d.iPersonID="
        "(SELECT iPersonSecondID FROM AutomobilContracts WHERE iContractType=2)")


def settle_commission(office, table):
    before = owes(office)
    row = sale.sale(office)
    charged = sum(float(row[column]) for column in ("dCommission", "dTax2", "dImposition2")) - float(row["dDiscountSecond"])
    office.command(money_labels.SETTLE_BUYER)
    window = office.tree.window(money_labels.CASH_RECEIPT)
    amount = office.tree.find("text", money_labels.AMOUNT, window)
    check(same(amount.number, charged), f"what the document charges is proposed, not {amount.text!r}")
    office.pictures.take("commission", "The commission of the buyer: what the contract's document charges is proposed")
    office.driver.press(labels.OK, window)
    office.tree.no_window(money_labels.CASH_RECEIPT)
    wait_for(lambda: same(owes(office), before - charged), "the commission in the books")
    # Once more proposes nothing: all of it was received.
    sale.select_sale(office, table)
    office.command(money_labels.SETTLE_BUYER)
    office.message(labels.QUESTION, "تسویه", answer=labels.NO,
                   picture=("settled", "A settled party is told before more is taken"))


def receive_half(office):
    dues = office.open_list(money_labels.DUES)
    wait_for(lambda: dues.row_count > 0, "what is due")
    office.pictures.take("dues", "All unpaid instalments, with the days they are overdue")
    office.driver.select_row(dues, 0)
    office.command(money_labels.RECEIVE)
    window = office.tree.window(money_labels.CASH_RECEIPT)
    amount = office.tree.find("text", money_labels.AMOUNT, window)
    check(same(amount.number, sale.INSTALMENT), f"the whole instalment is proposed, not {amount.text!r}")
    office.driver.enter(money_labels.AMOUNT, str(HALF), window)
    office.pictures.take("half", "Half of the instalment is received")
    office.driver.press(labels.OK, window)
    office.tree.no_window(money_labels.CASH_RECEIPT)
    first = sale.payments(office)[0]
    check(first["iStatus"] == "0", f"a half-paid instalment is not paid: {first}")


def open_books(office, title):
    office.driver.open_menu(labels.BOOK_MENU, office.main)
    wait_for(lambda: office.tree.shows("menu item", title, office.main), "the menu to open")
    office.driver.menu_entry(title, office.main)
    return office.tree.find("tree", title, office.main)


def receive_cheque(office, table, number):
    rows = table.row_count
    sayad, leaf = CHEQUES[number]
    office.command(money_labels.NEW_RECEIPT)
    window = office.tree.window(money_labels.RECEIPT_WINDOW)
    work.pick_person(office, window, work.PersonField(money_labels.PERSON, money_labels.PERSON + " ...", money_labels.PERSON),
                     BUYER, BUYER.split(" ")[1])
    office.driver.choose(money_labels.PURPOSE, price_of(office), window)
    office.driver.choose(money_labels.METHOD, money_labels.BY_CHEQUE, window)
    office.driver.enter(money_labels.AMOUNT, str(CHEQUE), window)
    office.driver.enter(money_labels.SAYAD, sayad, window)
    office.driver.enter(money_labels.CHEQUE_NUMBER, leaf, window)
    office.driver.enter(money_labels.DUE, f"1405/{10 + number}/15", window)
    office.driver.enter(money_labels.BANK, "ملت", window)
    office.pictures.take("cheque", f"Cheque {leaf} of the buyer")
    office.driver.press(labels.OK, window)
    office.tree.no_window(money_labels.RECEIPT_WINDOW)
    wait_for(lambda: table.row_count == rows + 1, "the receipt in the list")


def price_of(office):
    code = sale.sale(office)["iCode"]
    return f"بهای خودرو قرارداد {code}، خریدار"


def void_mistyped(office, table):
    before = owes(office)
    sayad = CHEQUES[MISTYPED][0]
    number = office.database.value("SELECT r.iID FROM Receipts r JOIN Cheques q ON q.iID=r.iChequeID "
                                   f"WHERE q.sSayad='{sayad}'")
    row = next(i for i, row in enumerate(table.rows()) if row[money_labels.COLUMN_NUMBER] == number)
    rows = table.row_count
    office.driver.select_row(table, row)
    office.command(money_labels.VOID)
    window = office.tree.window(money_labels.VOID_RECEIPT)
    office.driver.enter(money_labels.REASON, REASON, window)
    office.pictures.take("void", "A mistyped receipt is made void, with the reason")
    office.driver.press(labels.OK, window)
    office.tree.no_window(money_labels.VOID_RECEIPT)
    # Void ones are shown on request.
    wait_for(lambda: table.row_count == rows - 1, "the void receipt to leave the list")
    stored = office.database.row(f"SELECT * FROM Receipts WHERE iID={number}")
    check(stored["iStatus"] == "1" and stored["sVoidReason"] == REASON, f"the receipt keeps its row and the reason: {stored}")
    check(same(owes(office), before + CHEQUE), "the buyer owes the amount again")


def print_receipts(office, table, papers):
    for row in range(table.row_count):
        office.driver.select_row(table, row)
        listed = table.row(row)
        office.command(money_labels.PRINT_RECEIPT)
        preview = office.tree.window(money_labels.RECEIPT_PREVIEW)
        if row == 0:
            office.pictures.take("receipt-preview", "A receipt before it is printed")
        pdf = work.save_file(office, preview, labels.SAVE_PDF, os.path.join(papers, f"receipt{row}.pdf"))
        pages = documents.pdf_pages(pdf)
        check(len(pages) == 1, f"a receipt takes one page, not {len(pages)}")
        for text in (listed[money_labels.COLUMN_AMOUNT], listed[money_labels.COLUMN_NUMBER]):
            check(text in pages[0], f"{text!r} stands on the receipt:\n{pages[0]}")
        if row == 0:
            office.pictures.take_pages("receipt", "The receipt as a PDF document", pdf)
        office.driver.press(labels.BACK, preview)
        office.tree.no_window(money_labels.RECEIPT_PREVIEW)


def check_statement(office, papers):
    persons = open_books(office, labels.PERSONS)
    wait_for(lambda: persons.row_count >= 2, "the persons")
    row = next(i for i, row in enumerate(persons.rows()) if row[labels.COLUMN_PERSON] == BUYER)
    office.driver.select_row(persons, row)
    office.command(money_labels.STATEMENT)
    window = office.tree.window(money_labels.STATEMENT)
    statement = office.tree.find("tree", money_labels.STATEMENT, window)
    rows = wait_for(statement.rows, "the lines of the statement")
    debt = owes(office)
    last = float(rows[-1][money_labels.COLUMN_BALANCE].replace(",", ""))
    check(debt > 0 and same(last, debt), f"the last line is what the buyer owes, {debt:,.0f}: {rows[-1]}")
    office.pictures.take("statement", "The buyer's statement: its last line is what he owes")
    office.driver.press(labels.PRINT, window)
    preview = office.tree.window(labels.PREVIEW)
    pdf = work.save_file(office, preview, labels.SAVE_PDF, os.path.join(papers, "statement.pdf"))
    check(any(f"{debt:,.0f}" in page for page in documents.pdf_pages(pdf)), "the debt stands on paper")
    office.driver.press(labels.BACK, preview)
    office.tree.no_window(labels.PREVIEW)
    office.driver.press(labels.BACK, window)
    office.tree.no_window(money_labels.STATEMENT)


def check_books(office):
    """Every rial: the price, the interest and both commissions, less what was received."""
    sound_books.check(office.database, "a cashier's day")
    database = office.database
    row = sale.sale(office)
    charged = sum(float(row[column]) for column in ("dCommission", "dTax2", "dImposition2")) - float(row["dDiscountSecond"])
    received = database.number("SELECT SUM(dAmount) FROM Receipts WHERE iStatus=0")
    check(same(received, charged + HALF + len(CHEQUES) * CHEQUE), f"{received:,.0f} were received")
    # The buyer is also that of the office's earlier contract.
    earlier = database.number(f"SELECT SUM(d.dBed-d.dBes) FROM Docs d JOIN AutomobilContracts c ON c.iDocNum=d.iDocNum AND "
                              f"c.iFiscalYear=d.iFiscalYear WHERE c.iContractType<>2 AND d.iPersonID={row['iPersonSecondID']}")
    check(same(owes(office), sale.AMOUNT + sale.INTEREST + charged - received + earlier), f"the buyer owes {owes(office):,.0f}")
    money = database.number("SELECT SUM(d.dBed-d.dBes) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND "
                            "h.iFiscalYear=d.iFiscalYear WHERE h.iStatus=0 AND d.iHesabMoeenCode IN (110101,110481)")
    check(same(money, received), f"cash box and cheques hold {money:,.0f}")
    seller = database.number("SELECT SUM(d.dBes-d.dBed) FROM Docs d WHERE d.iHesabMoeenCode=110301 AND d.iPersonID="
                             f"{row['iPersonFirstID']} AND d.iDocNum={row['iDocNum']} AND d.iFiscalYear={row['iFiscalYear']}")
    owed = sum(float(row[column]) for column in ("dCommission", "dTax", "dImposition"))
    check(same(seller, sale.AMOUNT - owed), f"the seller is owed the price less his commission, not {seller:,.0f}")


if __name__ == "__main__":
    run(money_of_a_day, __doc__)
