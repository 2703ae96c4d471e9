#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The same plate is entered a second time, in another spelling: told beside the field, shown by one key, saved after one question."""

from lib import car_labels, cars, labels, work
from lib.journey import check, run, step
from lib.waiting import wait_for

from prepare_office import PERSONS

PLATE = "12 ب 345 ایران 67"
FILTER = "پلاک :"
AS_TYPED = "67-345ب12"


def twin(office):
    office.start()
    office.log_in()
    table = office.open_list(car_labels.CARS)

    step("a car with a plate")
    editor = begin_car(office)
    office.driver.enter(car_labels.PLATE, PLATE, editor)
    cars.save(office, editor, car_labels.CAR_NEW)
    wait_for(lambda: table.row_count == 1, "the car in the list")

    step("its twin is told while it is entered")
    editor = begin_car(office)
    office.driver.enter(car_labels.PLATE, AS_TYPED, editor, taken=PLATE)
    plate = office.tree.find("text", car_labels.PLATE, editor)
    office.driver.focus(office.tree.find("text", car_labels.CHASSIS, editor), editor)
    wait_for(lambda: "Ctrl+T" in plate.description, "the other car beside the plate")
    wait_for(lambda: plate.text == PLATE, "the plate in its one spelling")
    office.pictures.take("twin", "Another car has this plate already")

    step("one key leads to it")
    for _ in range(2):
        office.input.keys("shift+Tab")
    wait_for(lambda: plate.focused, "the plate to have the focus")
    office.input.keys("ctrl+t")
    shown = office.tree.window(car_labels.CAR_SHOW)
    cars.holds(office, shown, car_labels.PLATE, PLATE)
    office.pictures.take("found", "The other car, one key away")
    office.input.keys("Escape")
    office.tree.no_window(car_labels.CAR_SHOW)

    step("saved all the same, after one question")
    office.driver.press(labels.OK, editor)
    office.message(labels.QUESTION, "پلاک این خودرو", answer=labels.YES)
    office.tree.no_window(car_labels.CAR_NEW)
    wait_for(lambda: table.row_count == 2, "both cars in the list")
    plates = [row["sNumOfPlates"] for row in office.database.rows("SELECT sNumOfPlates FROM AutomobilInformations")]
    check(plates == [PLATE, PLATE], f"both cars are stored with the one spelling: {plates}")

    step("the list is asked for the plate as it was heard")
    for heard, taken, found in (("12 ب 999", "12 ب 999", 0), ("۳۴۵ ایران ۶۷", "345 ایران 67", 2)):
        office.driver.enter(FILTER, heard, office.main, taken=taken)
        office.command(labels.SEARCH)
        wait_for(lambda: table.row_count == found, f"{found} cars of {heard}")
    office.pictures.take("asked", "Both cars by a part of their plate, in other digits")
    office.leave()


def begin_car(office):
    editor = cars.new_car(office)
    work.pick_person(office, editor, cars.OWNER, PERSONS[0], PERSONS[0].split(" ")[1])
    return editor


if __name__ == "__main__":
    run(twin, __doc__)
