#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""An instalment is late: by keys alone to a text for the debtor, which is copied, pasted, and noted once."""

from lib import money_labels
from lib.journey import check, run, step
from lib.waiting import wait_for

WINDOW = "متن پیام: یادآوری قسط"
TEXT = "پیام :"
COPIED = "پیام کپی شد."
NOTED = "پیگیری در سابقه نوشته شد."
PERSIAN = str.maketrans("0123456789", "۰۱۲۳۴۵۶۷۸۹")
NOTES = "SELECT COUNT(*) FROM FollowUps WHERE sNote LIKE 'پیام «یادآوری قسط»%'"


def message(office):
    office.start()
    office.log_in_demo()

    step("the desk of what is due, and Ctrl+M on its first row")
    dues = office.open_list(money_labels.DUES)
    wait_for(lambda: dues.row_count > 0, "what is due")
    office.driver.select_row(dues, 0)
    office.driver.keys(office.main, "ctrl+m")
    window = office.tree.window(WINDOW)
    box = office.tree.find("text", TEXT, window)
    late = office.database.row(
        "SELECT p.sName2, ac.iCode, ap.iNum FROM AutomobilPayments ap JOIN AutomobilContracts ac ON ac.iID=ap.iAutomobilContractID"
        " JOIN Persons p ON p.iID=ap.iPersonID WHERE ap.iStatus=0 AND ac.iStatus=0 ORDER BY ap.date, ap.iID LIMIT 1")
    written = box.text
    for said in (late["sName2"], late["iNum"].translate(PERSIAN)):
        check(said in written, f"{said!r} is in {written!r}")
    check(not any(sign in written for sign in "{}[]0123456789"), f"every field is filled: {written!r}")

    step("Ctrl+C copies it: pasted, it is the same")
    office.driver.keys(window, "ctrl+c")
    wait_for(lambda: says(window, COPIED), "the copy to be told")
    office.pictures.take("copied", "The text for the debtor is copied by one key")
    office.driver.keys(window, "ctrl+a", "Delete")
    wait_for(lambda: box.text == "", "an empty text")
    office.driver.keys(window, "ctrl+v")
    wait_for(lambda: box.text == written, "the clipboard's text")

    step("F4 notes it, once though pressed twice")
    check(office.database.number(NOTES) == 0, "nothing is noted by itself")
    office.driver.keys(window, "F4", "F4")
    wait_for(lambda: says(window, NOTED), "the note to be told")
    office.pictures.take("noted", "It was said: the follow-up of the instalment")
    office.driver.keys(window, "F4")
    office.driver.keys(window, "Escape")
    office.tree.no_window(WINDOW)
    check(office.database.number(NOTES) == 1, "one follow-up")
    check(office.database.number(NOTES + " AND iPaymentID>0 AND iTable=69") == 1, "it is the instalment's")
    office.leave()


def says(window, words):
    return any(words in node.name for node in window.shown_descendants())


if __name__ == "__main__":
    run(message, __doc__)
