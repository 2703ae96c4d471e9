# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The work with one car of the register, in its list and its editor."""

from . import car_labels, labels, work
from .drivers import KeyboardDriver, MouseDriver
from .tree import State
from .waiting import wait_for


def person_field(of_whom):
    return work.PersonField(car_labels.PERSON_CODE + of_whom, car_labels.person_button(of_whom),
                            labels.PERSON + of_whom)


OWNER = person_field(car_labels.OWNER)
BUYER = person_field(car_labels.BUYER)


def new_car(office):
    office.command(labels.NEW)
    editor = office.tree.window(car_labels.CAR_NEW)
    office.tree.check_names(editor)
    return editor


def open_car(office, table, command=labels.EDIT, title=car_labels.CAR_EDIT):
    """The only car of the list."""
    wait_for(lambda: table.row_count == 1, "the car in the list")
    office.driver.select_row(table, 0)
    office.command(command)
    return office.tree.window(title)


def choose_values(office, editor, label, title, values, picture=None):
    """Enters values in the window of several values that a field's button opens, and ticks them all."""
    office.driver.press(car_labels.more(label), editor)
    window = office.tree.window(title)
    office.tree.check_names(window)
    for value in values:
        office.driver.enter(car_labels.NAME, value, window)
        office.driver.press(labels.NEW, window)
        wait_for(lambda value=value: value in [item.name for item in office.tree.find("list", title, window).children],
                 f"{value!r} among the values")
    for value in values:
        office.driver.tick(value, title, window)
    if picture:
        office.pictures.take(*picture)
    office.driver.press(labels.OK, window)
    office.tree.no_window(title)


def take_picture(office, editor, path):
    """Loads a file into the picture box."""
    box = office.tree.find("image", car_labels.PICTURE, editor)
    if isinstance(office.driver, KeyboardDriver):
        office.driver.focus(box, editor)
        office.input.keys("space")
    elif isinstance(office.driver, MouseDriver):
        office.driver.click(box, times=2)
    else:
        box.act("Press")
    work.answer_file_window(office, car_labels.CHOOSE_PICTURE, path)
    office.driver.ready(editor)


def save(office, editor, title):
    office.driver.press(labels.OK, editor)
    office.tree.no_window(title)


def holds(office, window, label, text):
    """Waits until a line or drop-down shows the text."""
    def shown():
        for role in ("text", "combo box"):
            for node in office.tree.look(role, label, window):
                return node.text if role == "text" else node.name
        return None
    wait_for(lambda: shown() == text, lambda: f"{label!r} to show {text!r}, not {shown()!r}")


def is_checked(office, window, label):
    return office.tree.find("check box", label, window).has(State.CHECKED)
