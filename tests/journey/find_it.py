#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The telephone rings, and somebody names a plate: by keys alone to the car, its owner, what it is about, and its window."""

import re

from lib import car_labels
from lib.journey import check, run, step
from lib.tree import State
from lib.waiting import wait_for

SEARCH = "جستجو در همه"
HITS = "یافته‌ها"
FACTS = "درباره این یافته"
STORY = "سرگذشت خودرو"
ENTERED = "خودرو معرفی شد"
PERSIAN = str.maketrans("0123456789", "۰۱۲۳۴۵۶۷۸۹")


def find_it(office):
    office.start()
    office.log_in_demo()
    car = office.database.row(
        "SELECT c.sNumOfPlates, p.sName2 FROM AutomobilInformations c JOIN Persons p ON p.iID=c.iPersonID"
        " WHERE c.sNumOfPlates LIKE '%ایران%' ORDER BY c.iID DESC LIMIT 1")
    plate, owner = car["sNumOfPlates"], car["sName2"]
    two, letter, three, region = re.fullmatch(r"(\d+) (\S+) (\d+) ایران (\d+)", plate).groups()

    step("Ctrl+K, and the plate as it was heard")
    office.driver.keys(office.main, "ctrl+k")
    box = office.tree.find("text", SEARCH, office.main)
    wait_for(lambda: box.focused, "the search to have the focus")
    heard = f"{region} {three}{letter}{two}".translate(PERSIAN)
    hits = choose_car(office, heard, owner, plate)

    step("what is known of it stands there")
    facts = wait_for(lambda: next((node.name for node in office.main.shown_descendants() if node.name.startswith(FACTS)), None), "what is known of the car")
    check(owner in facts, f"the owner is told: {facts!r}")
    for said in ("متقاضیان", "قرارداد"):
        check(said in facts or "فروخته" in hits[0], f"{said!r} is told in {facts!r}")
    office.pictures.take("found", "A plate as it was heard leads to the car")

    step("Enter shows the car")
    office.driver.keys(office.main, "Return")
    window = office.tree.window(car_labels.CAR_SHOW)
    office.driver.keys(window, "Escape")
    office.tree.no_window(car_labels.CAR_SHOW)

    step("Ctrl+T tells its story")
    office.driver.keys(office.main, "ctrl+k")
    wait_for(lambda: box.focused, "the search to have the focus for the story")
    office.driver.keys(office.main, "ctrl+a")
    choose_car(office, heard, owner, plate)
    office.driver.keys(office.main, "ctrl+t")
    events = wait_for(lambda: [node.name for node in office.tree.find("list", STORY, office.main).children if node.role == "list item"], "its events")
    check(any(ENTERED in name for name in events), f"the story begins with the car: {events}")
    office.pictures.take("story", "What happened to the car, from the same box")

    step("Esc gives the focus back")
    office.driver.keys(office.main, "ctrl+k")
    wait_for(lambda: box.focused, "the search to have the focus again")
    office.driver.keys(office.main, "Escape")
    wait_for(lambda: not box.focused, "the focus to be given back")
    office.leave()


def choose_car(office, heard, owner, plate):
    """Types what was heard, and goes to the car among the hits; the hits that are the car."""
    office.driver.input.type(heard)
    hits = wait_for(lambda: [name for name, _ in shown_hits(office) if owner in name and plate in name], "the car among the hits")
    check(len(hits) == 1, f"one car has the plate: {hits}")
    while chosen(office) not in hits:
        before = chosen(office)
        office.driver.keys(office.main, "Down")
        wait_for(lambda: chosen(office) != before, "the next hit to be chosen")
    return hits


def shown_hits(office):
    """Their names, and whether each is chosen; of one filling, as the list is filled anew with every answer."""
    def read():
        items = office.tree.find("list", HITS, office.main).children
        return ([(node.name, node.has(State.SELECTED)) for node in items if node.role == "list item"],)
    return wait_for(read, "the hits to hold still")[0]


def chosen(office):
    return next((name for name, is_chosen in shown_hits(office) if is_chosen), None)


if __name__ == "__main__":
    run(find_it, __doc__)
