#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A contract as a letter: written, printed from the form that came along, which one key takes, and read by another program."""

import os

from lib import documents, labels, work
from lib.journey import check, run, step

LETTER = "قرارداد نامه"
LETTER_NEW = "قرارداد نامه- جدید"
CHOOSE_FORM = "فایل نامه را انتخاب کنید"
NAME_THE_FORM = "لطفا مسیر فایل را مشخص نمایید."
FORM = "AutoLetter.docx"
# Of the heading, of the text below, of the signatures.
LAST_ARTICLE = ("نسخه‌های", "بایگانی", "شهود")
AMOUNT = 730_000_000
EXPLANATION = "نگهداری خودرو در نمایشگاه تا پایان ماه"


def letter_contract(office):
    papers = os.path.join(office.desktop.home, "papers")
    os.makedirs(papers)
    opener = documents.Opener(office.desktop)
    office.start()
    office.log_in_demo()
    people = office.database.rows("SELECT sName2, sFamily FROM Persons WHERE iStatus=0 AND sNationalCode<>'' ORDER BY iID LIMIT 2")
    office.open_contracts()

    step("the letter is written")
    editor = work.new_contract(office)
    office.driver.choose(labels.CONTRACT_TYPE, LETTER, editor)
    editor = office.tree.window(LETTER_NEW)
    for side, person in enumerate(people):
        work.pick_person(office, editor, work.party(side), person["sName2"], person["sName2"])
    office.driver.enter(labels.AMOUNT, str(AMOUNT), editor)
    office.driver.enter(labels.EXPLANATION, EXPLANATION, editor)
    office.driver.press(labels.OK, editor)
    office.message(labels.NOTICE, labels.DOCUMENT_POSTED)
    office.tree.no_window(LETTER_NEW)

    step("printed from the form that came along")
    office.command(labels.PRINT_CONTRACT)
    office.message(labels.WARNING, NAME_THE_FORM)
    chooser = office.tree.window(CHOOSE_FORM)
    office.driver.ready(chooser)
    office.pictures.take("form", "The form that came along is selected")
    office.driver.keys(chooser, "Return")
    office.tree.no_window(CHOOSE_FORM)
    path = opener.opened()
    check(os.path.basename(path) == FORM, f"it is printed under the name of its form, not {path}")
    check(os.stat(os.path.dirname(path)).st_mode & 0o077 == 0, "no other user can look at it")
    text = documents.word_text(path)
    for value in (EXPLANATION, f"{AMOUNT:,}", *(person["sFamily"] for person in people)):
        check(value in text, f"{value!r} stands in the letter:\n{text}")
    check("MERGEFIELD" not in text and "«" not in text, f"no field is left in the letter:\n{text}")
    if documents.has_word_processor():
        step("and read by another program")
        pages = documents.as_pdf(office.desktop, path, papers)
        shown = documents.pdf_pages(pages)
        check(any(EXPLANATION.split(" ")[0] in page for page in shown), "another program shows the letter")
        last = [next(number for number, page in enumerate(shown) if word in page) for word in LAST_ARTICLE]
        check(len(set(last)) == 1, f"the last heading stands over its text and the signatures: pages {last}")
        office.pictures.take_pages("letter", "The letter, as another program shows its pages", pages)
    office.leave()


if __name__ == "__main__":
    run(letter_contract, __doc__)
