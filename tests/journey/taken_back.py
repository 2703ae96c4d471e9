#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A contract is deleted once its received instalment was taken back; its history tells so, and the bin brings all of it back."""

from lib import labels, money_labels, recovery_labels, sound_books, work
from lib.figures import same
from lib.journey import check, run, step
from lib.waiting import wait_for

import instalment_sale as sale
import money_of_a_day as day

REASON = "خریدار منصرف شد"


def taken_back(office):
    office.start()
    office.log_in()
    contracts = office.open_contracts()
    step("an instalment sale, and a received instalment")
    day.write_sale(office, contracts)
    receive_instalment(office)
    before = stored(office)
    check(before["instalments"] == str(sale.COUNT) and before["paid"] == "1", f"the plan of the sale: {before}")

    step("its deletion is refused until the money is given back")
    open_contracts_again(office, contracts)
    void_then_delete(office, contracts)
    check(office.database.number(f"SELECT COUNT(*) FROM AutomobilContracts WHERE iID={before['iID']}") == 0, "the contract is gone")
    check(office.tree.shows("push button", recovery_labels.UNDO, office.main), "the status line offers to take it back")
    office.pictures.take("deleted", "Deleted; the status line offers to take that back")

    step("its history")
    read_history(office, before)
    step("back out of the bin")
    restore(office, before)
    step("deleted once more, and back with two keys")
    undo(office, contracts)
    office.leave()


def receive_instalment(office):
    dues = office.open_list(money_labels.DUES)
    wait_for(lambda: dues.row_count > 0, "what is due")
    office.driver.select_row(dues, 0)
    office.command(money_labels.RECEIVE)
    window = office.tree.window(money_labels.CASH_RECEIPT)
    office.driver.press(labels.OK, window)
    office.tree.no_window(money_labels.CASH_RECEIPT)
    wait_for(lambda: sale.payments(office)[0]["iStatus"] == "1", "the first instalment to be paid")


def stored(office):
    """What is there of the sale: row, plan, document."""
    return office.database.row(
        "SELECT c.iID, c.iCode, c.iDocNum, c.iFiscalYear, c.dAmount, c.sExplain, "
        "(SELECT COUNT(*) FROM AutomobilPayments p WHERE p.iAutomobilContractID=c.iID) AS instalments, "
        "(SELECT SUM(p.iStatus) FROM AutomobilPayments p WHERE p.iAutomobilContractID=c.iID) AS paid, "
        "(SELECT COUNT(*) FROM Docs d WHERE d.iDocNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear) AS entries, "
        "(SELECT SUM(d.dBed) FROM Docs d WHERE d.iDocNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear) AS debit, "
        "(SELECT SUM(d.dBes) FROM Docs d WHERE d.iDocNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear) AS credit "
        "FROM AutomobilContracts c WHERE c.iContractType=2")


def open_contracts_again(office, contracts):
    office.open_list(labels.CONTRACTS)
    sale.select_sale(office, contracts)


def void_then_delete(office, contracts):
    rows = contracts.row_count
    office.command(labels.DELETE)
    # Asked whether to look at what was received.
    office.message(labels.QUESTION, f"{sale.INSTALMENT:,}", labels.YES,
                   picture=("refused", "A contract with received money is not deleted, and the way on is offered"))
    window = office.tree.window(recovery_labels.CONTRACT_RECEIPTS)
    office.driver.enter(recovery_labels.VOID_REASON, REASON, window)
    office.driver.press(recovery_labels.VOID_RECEIPT, window)
    office.message(labels.QUESTION, f"{sale.INSTALMENT:,}", labels.YES)
    wait_for(lambda: office.database.number("SELECT COUNT(*) FROM Receipts WHERE iStatus=0") == 0, "the receipt to be void")
    office.driver.press(labels.BACK, window)
    office.tree.no_window(recovery_labels.CONTRACT_RECEIPTS)
    sale.select_sale(office, contracts)
    office.command(labels.DELETE)
    office.message(labels.QUESTION, labels.ASK_DELETE, labels.YES)
    wait_for(lambda: contracts.row_count == rows - 1, "the row to go")


def read_history(office, before):
    table = open_management(office, recovery_labels.HISTORY)
    wait_for(lambda: table.row_count > 0, "the history")
    newest = table.row(0)
    check(newest[recovery_labels.COLUMN_KIND] == recovery_labels.CONTRACT and newest[recovery_labels.COLUMN_WHAT] == recovery_labels.DELETED,
          f"the newest change is the deletion: {newest}")
    check(before["iCode"] in newest[recovery_labels.COLUMN_RECORD], f"it names the contract {before['iCode']}: {newest}")
    texts = " ".join(row[recovery_labels.COLUMN_CHANGES] for row in table.rows())
    check(REASON in texts, "why the receipt was taken back stands in the history")
    check("argon2" not in texts and "sPassword" not in texts, "no secret and no name of a column")
    office.pictures.take("history", "Who did what, in the words of the forms")


def open_management(office, title):
    office.driver.open_menu(recovery_labels.MANAGEMENT_MENU, office.main)
    wait_for(lambda: office.tree.shows("menu item", title, office.main), "the menu to open")
    office.driver.menu_entry(title, office.main)
    return office.tree.find("tree", title, office.main)


def restore(office, before):
    table = open_management(office, recovery_labels.BIN)
    wait_for(lambda: table.row_count == 1, "the deleted contract in the bin")
    row = table.row(0)
    check(row[recovery_labels.COLUMN_BIN_KIND] == recovery_labels.CONTRACT, f"a contract: {row}")
    check(str(sale.COUNT) in row[recovery_labels.COLUMN_CONTENTS], f"with its instalments: {row}")
    office.pictures.take("bin", "The bin: who deleted what, with how much, and how long it stays")
    office.driver.select_row(table, 0)
    office.command(recovery_labels.RESTORE)
    office.message(labels.NOTICE, recovery_labels.CONTRACT, picture=("restored", "What came back, and what is not as it was"))
    wait_for(lambda: table.row_count == 0, "the bin to be empty")
    check_back(office, before)


def check_back(office, before):
    after = stored(office)
    check(all(after[column] == before[column] for column in ("iID", "iCode", "dAmount", "sExplain", "instalments", "entries", "debit")),
          f"all of it is back: {before}, now {after}")
    check(same(float(after["debit"]), float(after["credit"])) and float(after["debit"]) > 0, f"its document balances: {after}")
    check(after["paid"] == "0", "the instalment that was given back is open")
    sound_books.check(office.database, "taken back")


def undo(office, contracts):
    open_contracts_again(office, contracts)
    before = stored(office)
    rows = contracts.row_count
    office.command(labels.DELETE)
    office.message(labels.QUESTION, labels.ASK_DELETE, labels.YES)
    wait_for(lambda: contracts.row_count == rows - 1, "the row to go")
    office.driver.keys(office.main, "ctrl+z")
    wait_for(lambda: contracts.row_count == rows, "the row to be back")
    check_back(office, before)


if __name__ == "__main__":
    run(taken_back, __doc__)
