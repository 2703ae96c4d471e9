#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""From an empty data folder to a posted contract, and back to it after a new start."""

import subprocess

from lib import labels, work
from lib.figures import same
from lib.drivers import KeyboardDriver
from lib.journey import check, run, step
from lib.waiting import wait_for

from prepare_office import PERSONS

# As in the prepared office, so that the steps played there can follow here too.
SELLER, BUYER = PERSONS
SELLER_DISCOUNT = 10
FIRST_AMOUNT = 800_000_000
AMOUNT = 1_200_000_000
EXPLANATION = "فروش یک دستگاه سواری"


def main_job(office):
    step("first start and login")
    office.start()
    office.set_up()
    office.log_in(picture=("login", "The administrator logs in"))
    office.pictures.take("start-page", "The main window greets with its start page")

    step("a person in the persons list")
    add_buyer(office)

    step("contract list and its settings")
    table = office.open_contracts(("menu", "The menu of the car gallery"))
    office.pictures.take("contracts-empty", "The contract list of a new office is empty")
    if table.row_count != 0:
        raise AssertionError(f"a new office has contracts: {table.rows()}")
    work.write_settings(office, picture=("settings", "Tax, duty and two tiers of commission"))

    step("a new contract")
    contract = write_contract(office)

    step("list, database and document")
    check_list(office, table)
    office.pictures.take("contract-listed", "The contract stands in the list with its parties and document")
    check_database(office, contract)
    office.check_secrets()

    step("the same after a new start")
    office.leave()
    check_database_is_down(office)
    office.start()
    office.log_in()
    table = office.open_contracts()
    check_list(office, table)
    office.pictures.take("after-restart", "After a new start the list shows the same contract")
    check_shown_contract(office, table, contract)
    check_database(office, contract)
    office.leave()


def add_buyer(office):
    office.driver.open_menu(labels.BOOK_MENU, office.main)
    wait_for(lambda: office.tree.shows("menu item", labels.PERSONS, office.main), "the menu to open")
    office.driver.menu_entry(labels.PERSONS, office.main)
    office.tree.find("tree", labels.PERSONS, office.main)
    office.command(labels.NEW)
    work.add_person(office, office.main, *BUYER.split(" "), mobile="09121112233")
    office.pictures.take("persons", "The person stands in the list")


def write_contract(office):
    """Fills and saves the editor; returns the contract's key, code and figures."""
    editor = work.new_contract(office)
    office.pictures.take("editor-new", "A new contract with the next code and the percentages of the settings")
    placeholder = office.database.row("SELECT iID, iCode, dPercentTax, dPercentImposition2 FROM AutomobilContracts")
    check(office.tree.find("text", labels.CONTRACT_CODE, editor).number == 1, "the first contract has code 1")
    check(float(placeholder["dPercentTax"]) == work.SETTINGS.tax, "the placeholder has the tax of the settings")

    add_seller_from_picker(office, editor)
    work.pick_person(office, editor, work.party(1), BUYER, BUYER.split(" ")[1],
                     ("picker-search", "The second party is searched as one types"))

    office.driver.enter(labels.AMOUNT, work.typed(FIRST_AMOUNT, office), editor)
    work.check_figures(office, editor, FIRST_AMOUNT, (SELLER_DISCOUNT, 0))
    office.pictures.take("figures-first-tier", "Commission of the first tier; tax, duty and discount have followed")
    office.driver.enter(labels.AMOUNT, work.typed(AMOUNT, office), editor)
    figures = work.check_figures(office, editor, AMOUNT, (SELLER_DISCOUNT, 0))
    office.driver.enter(labels.EXPLANATION, EXPLANATION, editor)
    office.pictures.take("figures-second-tier", "A higher amount falls into the second tier, and everything follows")

    office.driver.press(labels.OK, editor)
    office.message(labels.WARNING, labels.NO_CAR_NAME,
                   picture=("car-missing", "A contract without its vehicle is not saved; its page has come to the front"))
    work.write_car(office, editor, ("car", "The vehicle, its payment and its registry data"))
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED,
                   picture=("document-posted", "Saving tells the number of the accounting document"))
    office.tree.no_window(labels.EDITOR_NEW)
    return {"key": int(placeholder["iID"]), "code": int(placeholder["iCode"]), "figures": figures}


def add_seller_from_picker(office, editor):
    picker = work.open_picker(office, editor, work.party(0))
    office.pictures.take("picker", "The first party is picked from the persons")
    if isinstance(office.driver, KeyboardDriver):
        office.driver.keys(picker, "Insert")
    else:
        office.driver.press(labels.NEW, picker)
    work.add_person(office, picker, *SELLER.split(" "), discount_percent=str(SELLER_DISCOUNT))
    table = office.tree.find("tree", labels.PERSONS, picker)
    office.pictures.take("picker-added", "The person added on the way stands selected in the picker")
    work.confirm_picker(office, picker, table, editor, work.party(0), SELLER)


def check_list(office, table):
    wait_for(lambda: table.row_count == 1, "one contract in the list")
    row = table.row(0)
    check(row[labels.COLUMN_SELLER] == SELLER and row[labels.COLUMN_BUYER] == BUYER, f"the parties in the row {row}")
    check(row[labels.COLUMN_EXPLANATION] == EXPLANATION, f"the explanation in the row {row}")
    document = office.database.value("SELECT iNum FROM Documents")
    check(row[labels.COLUMN_DOCUMENT] == document, f"document {document} in the row {row}")


def check_database(office, contract):
    database = office.database
    row = database.row("SELECT * FROM AutomobilContracts")
    figures = contract["figures"]
    wanted = {"iID": contract["key"], "iCode": contract["code"], "iStatus": 0, "dAmount": AMOUNT,
              "dCommission": figures.commission, "dPercentDiscount": SELLER_DISCOUNT,
              "dDiscountFirst": figures.discounts[0], "dDiscountSecond": 0, "dTax": figures.tax,
              "dTax2": figures.tax, "dImposition": figures.duty, "dImposition2": figures.duty,
              "dPayFirst": figures.pays[0], "dPaySecond": figures.pays[1]}
    for column, value in wanted.items():
        check(same(float(row[column]), value), f"{column} is {row[column]}, not {value}")
    check((row["sName1"], row["sName2"]) == (SELLER, BUYER), f"the names {row['sName1']}, {row['sName2']}")
    work.check_car(office)
    check_document(database, row, figures)


def check_document(database, contract, figures):
    document = database.row("SELECT * FROM Documents")
    check((document["iNum"], document["iFiscalYear"]) == (contract["iDocNum"], contract["iFiscalYear"]),
          "the contract's document is the only one")
    of_document = f"FROM Docs WHERE iDocNum={document['iNum']} AND iFiscalYear={document['iFiscalYear']}"
    sums = database.row(f"SELECT COUNT(*) AS n, SUM(dBed) AS bed, SUM(dBes) AS bes {of_document}")
    check(int(sums["n"]) > 0 and same(float(sums["bed"]), float(sums["bes"])), f"the document does not balance: {sums}")
    check(float(sums["bed"]) > 0, "the document is empty")
    for person, pays in ((contract["iPersonFirstID"], figures.pays[0]), (contract["iPersonSecondID"], figures.pays[1])):
        owes = database.number(f"SELECT SUM(dBed)-SUM(dBes) {of_document} AND iPersonID={person}")
        check(same(owes, pays), f"person {person} owes {owes}, not {pays}")
    income = database.number(f"SELECT SUM(dBes)-SUM(dBed) {of_document} AND iHesabMoeenCode=410202")
    check(same(income, 2 * figures.commission - figures.discounts[0]), f"the income is {income}")


def check_shown_contract(office, table, contract):
    office.driver.select_row(table, 0)
    office.command(labels.SHOW)
    window = office.tree.window(labels.EDITOR_SHOW)
    work.check_figures(office, window, AMOUNT, (SELLER_DISCOUNT, 0))
    check(office.tree.find("text", labels.AMOUNT, window).number == AMOUNT, "the shown amount")
    check(not office.tree.shows("push button", labels.OK, window), "a shown contract cannot be saved")
    office.pictures.take("shown-after-restart", "The contract, shown read-only, has kept every figure")
    work.open_page(office, window, labels.MATTER_PAGE)
    for (label, _), text in work.CAR.items():
        check(office.tree.find("text", label, window).text == text, f"the shown {label!r}")
    office.pictures.take("shown-car", "The vehicle is shown as it was saved")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(labels.EDITOR_SHOW)


def check_database_is_down(office):
    try:
        office.database.rows("SELECT 1")
    except (AssertionError, subprocess.TimeoutExpired):
        return
    raise AssertionError("the database server outlives the program")


if __name__ == "__main__":
    run(main_job, __doc__)
