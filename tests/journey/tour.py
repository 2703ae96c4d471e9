#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Somebody new in the demo office goes through the tour by keys alone, and a user with few rights through what is his."""

from lib import labels, rights
from lib.journey import check, run, step
from lib.waiting import wait_for

TOUR = "گشت در برنامه"
BEGIN, REFUSE = "شروع گشت", "نمی‌خواهم"
STEPS = 10
# The table of the list that a step has opened.
PAGES = {3: "قرارداد", 4: "گالري اتومبيل", 6: "اقساط و سررسیدها", 7: "چک‌ها", 8: "کاربران و دسترسی‌ها"}
PICTURES = {1: "The first step points at what is due today", 6: "An instalment and its receipt", 10: "The last step"}


def tour(office):
    office.start()
    office.log_in_demo()

    step("from the menu")
    office.driver.open_menu(labels.PROGRAM_MENU, office.main)
    office.driver.menu_entry(TOUR, office.main)
    changes = office.database.number("SELECT COUNT(*) FROM Changes")
    walk(office, STEPS)
    check(office.database.number("SELECT COUNT(*) FROM Changes") == changes, "the tour changes nothing")

    step("Escape ends it at once")
    office.driver.open_menu(labels.PROGRAM_MENU, office.main)
    office.driver.menu_entry(TOUR, office.main)
    card = office.tree.window(TOUR)
    office.driver.keys(card, "Return")
    office.tree.find("label", number(2, STEPS), card)
    office.driver.keys(card, "Escape")
    office.tree.no_window(TOUR)

    step("offered once to a user who has not seen it")
    rights.change_user(office, rights.NOBODY, rights.PASSWORD)
    office.tree.find("push button", REFUSE, office.main)
    office.pictures.take("offered", "Who is new in the demo office is offered the tour")
    office.driver.press(BEGIN, office.main)
    walk(office, 2, {})
    check(not office.tree.look("push button", BEGIN, office.main), "the offer is gone with its answer")
    office.leave()


def number(at, of):
    return f"گام {at} از {of}"


def walk(office, steps, pages=None):
    """By Enter from the first step to the end."""
    pages = PAGES if pages is None else pages
    card = office.tree.window(TOUR)
    for at in range(1, steps + 1):
        office.tree.find("label", number(at, steps), card)
        check(number(at, steps) in (card.accessible.get_description() or ""), f"a screen reader is told of step {at}")
        if at in pages:
            office.tree.find("tree", pages[at], office.main)
        if steps == STEPS and at in PICTURES:
            office.pictures.take(f"step-{at}", PICTURES[at])
        office.driver.keys(card, "Return")
    office.tree.no_window(TOUR)
    wait_for(lambda: office.input.window_with_keys() == office.main.name, "the main window to have the keys again")


if __name__ == "__main__":
    run(tour, __doc__)
