#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""An instalment sale from end to end: contract, vehicle and terms, plan, a received instalment, all of it on paper."""

import datetime
import os

from lib import documents, labels, work
from lib.figures import same
from lib.journey import check, run, step
from lib.waiting import wait_for

from prepare_office import PERSONS

SELLER, BUYER = PERSONS
AMOUNT = 900_000_000
CHECKS = 300_000_000
PRINCIPAL = AMOUNT - CHECKS
RATE = 2
COUNT = 12
INTEREST = PRINCIPAL * RATE * COUNT // 100
INSTALMENT = (PRINCIPAL + INTEREST) // COUNT
EXPLANATION = "فروش اقساطی پژو پارس"
# The fifteenth of every month of 1405. The first due date follows a month of 29 days.
START = "1404/12/15"
FIRST_DUE = datetime.date(2026, 4, 4)
MONTHS_OF_1405 = (31, 31, 31, 31, 31, 31, 30, 30, 30, 30, 30)

# By label and column; what is True appears in the printed contract as well.
VEHICLE_AND_TERMS = (
    ("نام اتومبيل :", "sAutomobilName", "پژو پارس", True),
    ("رنگ :", "sColor", "سفید صدفی", True),
    ("نوع اتومبيل :", "sAutomobilType", "سواری", True),
    ("سيستم :", "sSystem", "ایران خودرو", True),
    ("سال توليد :", "sModel", "1402", True),
    ("تيپ :", "sBrigade", "ELX", True),
    ("نوع سوخت :", "sFuel", "بنزین", True),
    ("شماره موتور :", "sNumOfEngines", "124K9081726", True),
    ("شماره شاسي :", "sChassisNum", "NAAN01CE8NK551122", True),
    ("شماره پلاک :", "sNumOfPlates", "12 ب 345 ایران 67", False),
    ("دانگ :", "sDengue", "شش", True),
    ("توضيحات :", "sDescMatter", "بدون رنگ با کارکرد 21000 کیلومتر", True),
    ("پرداخت به صورت چکي : تعداد :", "sCheckCount", "3", True),
    ("شماره چک :", "sCheckNum", "551020 تا 551022", True),
    ("نام بانک :", "sBankName", "بانک ملت", True),
    ("نام شعبه :", "sBranchName", "میدان آزادی", True),
    ("کد شعبه :", "sBranchCode", "6342", True),
    ("شماره دفتر خانه :", "sRegistryNum", "118", True),
    ("استان :", "sState", "تهران", False),
    ("شهرستان :", "sCity", "ری", False),
)
MONEY_TERMS = (
    ("فقره چک، که مجموع مبالغ آنها :", "dAgreeAmount", CHECKS),
    ("خسارت تخلف :", "dDamageAmount", 45_000_000),
    ("مبلغ تاخير :", "dDelayAmount", 1_500_000),
)


def instalment_sale(office):
    opener = documents.Opener(office.desktop)
    papers = os.path.join(office.desktop.home, "papers")
    os.makedirs(papers)
    office.start()
    office.log_in()
    table = office.open_contracts()
    wait_for(lambda: table.row_count == 1, "the contract of the prepared office")

    step("parties and amount")
    editor = begin_contract(office)
    step("vehicle and terms")
    fill_matter_page(office, editor)
    step("the plan")
    plan = store_plan(office, editor)
    check(not any(row["iStatus"] != "0" for row in payments(office)), "a stored plan is unpaid")
    office.driver.press(labels.BACK, plan)
    office.tree.no_window(labels.PLAN)
    save(office, editor, labels.INSTALMENTS_NEW)
    wait_for(lambda: table.row_count == 2, "the instalment sale in the list")
    check_contract(office)

    step("an instalment is received")
    select_sale(office, table)
    receive_instalment(office, papers)
    check_books(office)

    step("the printed contract")
    select_sale(office, table)
    print_contract(office, opener, papers)

    step("the list on paper")
    print_list(office, papers)
    office.leave()


def begin_contract(office):
    editor = work.new_contract(office)
    office.driver.choose(labels.CONTRACT_TYPE, labels.INSTALMENT_SALE, editor)
    office.tree.window(labels.INSTALMENTS_NEW)
    for side, name in enumerate(PERSONS):
        work.pick_person(office, editor, work.party(side), name, name.split(" ")[1])
    office.driver.enter(labels.AMOUNT, str(AMOUNT), editor)
    work.check_figures(office, editor, AMOUNT, (0, 0))
    office.driver.enter(labels.EXPLANATION, EXPLANATION, editor)
    office.pictures.take("parties", "An instalment sale: parties, amount, and what both have to pay")
    return editor


def fill_matter_page(office, editor):
    work.open_page(office, editor, labels.MATTER_PAGE)
    office.pictures.take("matter-empty", "The second page of an instalment sale, still empty")
    for label, _, text, _ in VEHICLE_AND_TERMS:
        office.driver.enter(label, text, editor)
    for label, _, amount in MONEY_TERMS:
        office.driver.enter(label, str(amount), editor)
    office.pictures.take("matter-filled", "Vehicle, payment and terms; amounts stand in words below their fields")
    office.tree.find("text", VEHICLE_AND_TERMS[-1][0], editor).act("SetFocus")
    office.pictures.take("matter-end", "The end of the page comes into view with the focus")


def store_plan(office, editor):
    office.driver.press(labels.PLAN, editor)
    plan = office.tree.window(labels.PLAN)
    principal = office.tree.find("text", labels.PLAN_PRINCIPAL, plan)
    check(principal.number == PRINCIPAL, f"what is left of the amount is proposed, not {principal.text!r}")
    for label, text in ((labels.PLAN_START, START), (labels.PLAN_RATE, str(RATE)), (labels.PLAN_COUNT, str(COUNT)),
                        (labels.PLAN_INTERVAL, "1")):
        office.driver.enter(label, text, plan)
    office.driver.press(labels.PLAN, plan)
    table = office.tree.find("tree", labels.PLAN, plan)
    wait_for(lambda: table.row_count == COUNT, f"{COUNT} instalments")
    for label, amount in ((labels.PLAN_TOTAL, PRINCIPAL + INTEREST), (labels.PLAN_INTEREST, INTEREST)):
        shown = office.tree.find("text", label, plan)
        wait_for(lambda shown=shown, amount=amount: same(shown.number, amount), f"{label!r} to be {amount}")
    rows = table.rows()
    check([row[labels.COLUMN_DUE] for row in rows] == [f"1405/{month:02}/15" for month in range(1, 13)],
          f"the due dates {[row[labels.COLUMN_DUE] for row in rows]}")
    check({row[labels.COLUMN_INSTALMENT] for row in rows} == {f"{INSTALMENT:,}"}, f"the instalments {rows[0]}")
    office.pictures.take("plan", "Twelve equal instalments, due on the fifteenth of every month")
    check(not payments(office), "nothing is stored by calculating")
    office.driver.press(labels.PLAN_SAVE, plan)
    office.message(labels.NOTICE, labels.PLAN_SAVED, picture=("plan-stored", "The plan is stored"))
    wait_for(lambda: len(payments(office)) == COUNT, "the plan in the database")
    due = FIRST_DUE
    for number, row in enumerate(payments(office), 1):
        check(int(row["iNum"]) == number and row["date"].startswith(due.isoformat()), f"instalment {number}: {row}")
        check(same(float(row["dAmount"]), INSTALMENT), f"instalment {number} is {row['dAmount']}")
        due += datetime.timedelta((*MONTHS_OF_1405, 0)[number - 1])
    return plan


def payments(office):
    """The plan of the newest contract, which has no parties before it is saved."""
    return office.database.rows("SELECT * FROM AutomobilPayments WHERE iAutomobilContractID="
                                "(SELECT MAX(iID) FROM AutomobilContracts) ORDER BY iNum")


def save(office, editor, title):
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(title)


def sale(office):
    return office.database.row("SELECT * FROM AutomobilContracts WHERE iContractType=2")


def check_contract(office):
    row = sale(office)
    wanted = {column: text for _, column, text, _ in VEHICLE_AND_TERMS}
    wanted |= {"sName1": SELLER, "sName2": BUYER, "sExplain": EXPLANATION, "iStatus": "0"}
    for column, text in wanted.items():
        check(row[column] == text, f"{column} is {row[column]!r}, not {text!r}")
    for column, amount in {"dAmount": AMOUNT, **{column: amount for _, column, amount in MONEY_TERMS}}.items():
        check(same(float(row[column]), amount), f"{column} is {row[column]}, not {amount}")


def select_sale(office, table):
    wait_for(lambda: table.row_count == 2, "both contracts in the list")
    row = next(i for i, row in enumerate(table.rows()) if row[labels.COLUMN_EXPLANATION] == EXPLANATION)
    office.driver.select_row(table, row)


def receive_instalment(office, papers):
    office.command(labels.EDIT)
    editor = office.tree.window(labels.INSTALMENTS_EDIT)
    work.open_page(office, editor, labels.MATTER_PAGE)
    office.driver.press(labels.PLAN, editor)
    plan = office.tree.window(labels.PLAN)
    table = office.tree.find("tree", labels.PLAN, plan)
    wait_for(lambda: table.row_count == COUNT, "the stored plan")
    office.driver.select_row(table, 0)
    office.driver.press(labels.PLAN_RECEIVE, plan)
    receipt = office.tree.window(labels.RECEIPT)
    amount = office.tree.find("text", labels.RECEIPT_AMOUNT, receipt)
    check(same(amount.number, INSTALMENT), f"the receipt proposes {amount.text!r}")
    office.pictures.take("receipt", "The first instalment is received: person, amount and description are proposed")
    office.driver.press(labels.OK, receipt)
    office.tree.no_window(labels.RECEIPT)
    states = [labels.PAID] + [labels.UNPAID] * (COUNT - 1)
    wait_for(lambda: [row[labels.COLUMN_STATE] for row in table.rows()] == states,
             "the first instalment to show as paid")
    check(office.tree.shows("label", labels.PLAN_NOTE, plan), "the note on a paid instalment shows")
    for caption in (labels.PLAN, labels.PLAN_SAVE, labels.PLAN_DELETE):
        check(not office.tree.find("push button", caption, plan).enabled, f"{caption!r} is refused once one is paid")
    office.pictures.take("received", "One instalment is paid: the plan cannot be changed any more")
    print_plan(office, plan, papers)
    office.driver.press(labels.BACK, plan)
    office.tree.no_window(labels.PLAN)
    save(office, editor, labels.INSTALMENTS_EDIT)


def print_plan(office, plan, papers):
    office.driver.press(labels.PRINT, plan)
    preview = office.tree.window(labels.PREVIEW)
    check(BUYER in preview.name, f"the plan's title names the buyer: {preview.name!r}")
    office.pictures.take("plan-preview", "The plan on paper, before it is printed")
    pdf = work.save_file(office, preview, labels.SAVE_PDF, os.path.join(papers, "plan.pdf"))
    pages = documents.pdf_pages(pdf)
    check(len(pages) == 1, f"twelve instalments take one page, not {len(pages)}")
    for month in range(1, COUNT + 1):
        check(documents.line_holds(pages[0], f"{month} 1405/{month:02}/15 {INSTALMENT:,}"),
              f"instalment {month} stands on paper:\n{pages[0]}")
    office.pictures.take_pages("plan", "The plan as a PDF document", pdf)
    office.driver.press(labels.BACK, preview)
    office.tree.no_window(labels.PREVIEW)


def check_books(office):
    states = [row["iStatus"] for row in payments(office)]
    check(states == ["1"] + ["0"] * (COUNT - 1), f"one instalment is paid: {states}")
    database = office.database
    books = database.rows("SELECT iDocNum, iFiscalYear, SUM(dBed) AS bed, SUM(dBes) AS bes FROM Docs"
                          " GROUP BY iDocNum, iFiscalYear")
    check(len(books) == 3, f"a document for each contract and for the receipt: {books}")
    for document in books:
        check(float(document["bed"]) > 0 and same(float(document["bed"]), float(document["bes"])),
              f"the document balances: {document}")
    receipt = database.row("SELECT * FROM Receipts")
    row = sale(office)
    check({payment["iPersonID"] for payment in payments(office)} == {row["iPersonSecondID"]}, "the buyer owes the plan")
    check(receipt["iPersonID"] == row["iPersonSecondID"] and same(float(receipt["dAmount"]), INSTALMENT),
          f"the receipt is the buyer's: {receipt}")
    paid = database.number(f"SELECT SUM(dBes)-SUM(dBed) FROM Docs WHERE iPersonID={receipt['iPersonID']}"
                           f" AND iDocNum={receipt['iDocNum']}")
    check(same(paid, INSTALMENT), f"the buyer's account is credited {paid}")


def print_contract(office, opener, papers):
    office.command(labels.PRINT_CONTRACT)
    path = opener.opened()
    temporary = office.desktop.environment["TMPDIR"]
    check(path.startswith(temporary + os.sep) and os.path.basename(path) == "AutoInstallment.docx",
          f"the contract is printed into the temporary folder, not {path}")
    check(os.stat(os.path.dirname(path)).st_mode & 0o077 == 0, "no other user can look at a printed contract")
    for name, source in documents.word_parts(path).items():
        for trace in ("MERGEFIELD", "mailMerge", "«"):
            check(trace not in source, f"no {trace} is left in {name}")
    text = documents.word_text(path)
    values = [value for _, _, value, printed in VEHICLE_AND_TERMS if printed]
    values += [f"{amount:,}" for amount in (AMOUNT, *(amount for _, _, amount in MONEY_TERMS))]
    values += [word for name in PERSONS for word in name.split(" ")]
    # The plate stands there in the order of the car, which marks of direction keep.
    values += [sale(office)["iCode"], "فروش اقساطی", documents.plain("12 ب\u200e 345 | ایران\u200e 67")]
    for value in values:
        check(value in text, f"{value!r} stands in the contract:\n{text}")
    pages = documents.as_pdf(office.desktop, path, papers)
    check(any(BUYER.split(" ")[1] in page for page in documents.pdf_pages(pages)), "another program shows the contract")
    office.pictures.take_pages("contract", "The printed contract, as another program shows its pages", pages)


def print_list(office, papers):
    office.command(labels.PRINT)
    preview = office.tree.window(labels.PREVIEW)
    office.pictures.take("list-preview", "The list of contracts, before it is printed")
    pdf = work.save_file(office, preview, labels.SAVE_PDF, os.path.join(papers, "list.pdf"), ("save-pdf", "Saved as PDF"))
    pages = documents.pdf_pages(pdf)
    check(len(pages) == 1, f"two contracts take one page, not {len(pages)}")
    for name in PERSONS:
        check(documents.line_holds(pages[0], f"{name} {EXPLANATION}"), f"{name} stands in the list:\n{pages[0]}")
    office.pictures.take_pages("list", "The list of contracts as a PDF document", pdf)

    path = work.save_file(office, preview, labels.SAVE_SPREADSHEET, os.path.join(papers, "list.xlsx"),
                     ("save-spreadsheet", "Saved as a spreadsheet"))
    from_the_right, rows = documents.sheet(path)
    check(from_the_right, "the sheet reads from the right")
    check(rows[0][:4] == ["ردیف", "نوع قرارداد", labels.COLUMN_SELLER, labels.COLUMN_BUYER], f"the titles {rows[0]}")
    listed = next((row for row in rows[1:] if EXPLANATION in row), None)
    check(len(rows) == 3 and listed is not None, f"both contracts are in the sheet: {rows}")
    check(listed[1:4] == [labels.INSTALMENT_SALE, SELLER, BUYER], f"the row of the sale {listed}")
    check(float(sale(office)["iDocNum"]) in listed, f"the number of the document is a number: {listed}")
    office.driver.press(labels.BACK, preview)
    office.tree.no_window(labels.PREVIEW)


if __name__ == "__main__":
    run(instalment_sale, __doc__)
