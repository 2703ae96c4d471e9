#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The cars as cards: from the table to them and back, by keys to a car, its window, and the same choice after a new start."""

from lib import car_labels
from lib.journey import check, run, step
from lib.tree import State
from lib.waiting import wait_for

CARDS = "کارت‌های " + car_labels.CARS
TABLE_BUTTON = "جدول"
CARDS_BUTTON = "کارت"
QUICK = "پالایش سریع در فهرست"


def card(office):
    office.start()
    office.log_in_demo()

    step("from the table to the cards")
    table = office.open_list(car_labels.CARS)
    wait_for(lambda: table.row_count > 3, "the cars to be listed")
    listed = table.row_count
    office.driver.toggle(CARDS_BUTTON, office.main)
    cards = office.tree.find("list", CARDS, office.main)
    wait_for(lambda: len(shown(cards)) == listed, "a card for each row")
    office.pictures.take("cards", "The cars as cards")

    step("by keys to a car, and to its window")
    office.driver.focus(cards, office.main)
    first = chosen(cards)
    office.driver.keys(office.main, "Left")
    wait_for(lambda: chosen(cards) not in (None, first), "the next card to be chosen")
    name = chosen(cards)
    office.driver.keys(office.main, "Return")
    window = office.tree.window(car_labels.CAR_SHOW)
    plate = office.tree.find("text", car_labels.PLATE, window).text
    check(plate in name, f"the window shows the car of the card {name!r}: {plate!r}")
    office.driver.keys(window, "Escape")
    office.tree.no_window(car_labels.CAR_SHOW)

    step("the quick filter narrows them")
    office.driver.enter(QUICK, plate, office.main)
    wait_for(lambda: [entry.name for entry in shown(cards)] == [name], "that car's card alone")
    office.driver.enter(QUICK, "", office.main)

    step("the choice is kept, and taken back")
    office.leave()
    office.start()
    office.log_in_demo()
    office.driver.open_menu("گالری اتومبیل", office.main)
    office.driver.menu_entry(car_labels.CARS, office.main)
    cards = office.tree.find("list", CARDS, office.main)
    office.driver.toggle(TABLE_BUTTON, office.main)
    wait_for(lambda: office.tree.shows("tree", car_labels.CARS, office.main), "the table")
    check(not office.tree.shows("list", CARDS, office.main), "the cards gave way to it")
    office.leave()


def shown(cards):
    return [node for node in cards.children if node.role == "list item"]


def chosen(cards):
    return next((node.name for node in shown(cards) if node.has(State.SELECTED)), None)


if __name__ == "__main__":
    run(card, __doc__)
