# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The lists that cars are described by: brands with models and classes, input values, notary tariffs."""

from . import car_labels, labels, work
from .tree import filled_anew
from .waiting import wait_for


def names(table, column):
    return [row[column] for row in table.rows()]


def open_catalog(office):
    office.command(car_labels.CATALOG)
    window = office.tree.window(car_labels.CATALOG)
    office.tree.check_names(window)
    return window


def add_entry(office, window, level, name, refused=False):
    """A brand, a model of the selected brand, or a class of the selected model. refused: the empty name is tried first."""
    office.driver.press(car_labels.of(labels.NEW, level), window)
    title = f"{level} - جدید"
    editor = office.tree.window(title)
    if refused:
        office.driver.press(labels.OK, editor)
        office.message(labels.WARNING, car_labels.NO_CATALOG_NAME)
    office.driver.enter(car_labels.NAME, name, editor)
    office.driver.press(labels.OK, editor)
    office.tree.no_window(title)
    table = office.tree.find("tree", level, window)
    wait_for(lambda: name in names(table, level), f"{name!r} in the list of {level!r}")
    row = names(table, level).index(name)
    wait_for(lambda: table.selected_rows == [row], f"the new {name!r} to be selected")


def select_entry(office, window, level, name):
    table = office.tree.find("tree", level, window)
    wait_for(lambda: name in names(table, level), f"{name!r} in the list of {level!r}")
    office.driver.select_row(table, names(table, level).index(name))


def import_starting_set(office, window, path, picture):
    office.driver.press(car_labels.IMPORT, window)
    work.answer_file_window(office, car_labels.IMPORT_FILE, path)
    office.message(labels.QUESTION, car_labels.IMPORT_ASK, labels.YES, picture)
    # The list is filled once the notice has gone.
    with filled_anew(office.tree.find("tree", car_labels.BRANDS, window), "the import"):
        office.message(labels.NOTICE, car_labels.IMPORT_DONE)


def open_parameters(office):
    office.command(car_labels.PARAMETERS)
    window = office.tree.window(car_labels.PARAMETERS)
    office.tree.check_names(window)
    return window


def add_value(office, window, kind, name):
    """An input value of the kind that the window shows."""
    office.driver.press(labels.NEW, window)
    title = f"{kind} - جدید"
    editor = office.tree.window(title)
    office.driver.enter(car_labels.NAME, name, editor)
    office.driver.press(labels.OK, editor)
    return editor, title


def add_values(office, window, kind, wanted):
    office.driver.option(kind, window)
    table = office.tree.find("tree", car_labels.PARAMETERS, window)
    for name in wanted:
        _, title = add_value(office, window, kind, name)
        office.tree.no_window(title)
        wait_for(lambda name=name: name in names(table, car_labels.COLUMN_NAME), f"{name!r} in the list")


def add_tariff(office, window, name, cost, description, picture=None):
    """In the window of tariffs."""
    office.driver.press(labels.NEW, window)
    editor = office.tree.window(car_labels.TARIFF_NEW)
    office.tree.check_names(editor)
    office.driver.enter(car_labels.NAME, name, editor)
    office.driver.enter(car_labels.TARIFF_COST, str(cost), editor)
    office.driver.enter(car_labels.TARIFF_DESCRIPTION, description, editor)
    if picture:
        office.pictures.take(*picture)
    office.driver.press(labels.OK, editor)
    office.tree.no_window(car_labels.TARIFF_NEW)
    table = office.tree.find("tree", car_labels.TARIFFS, window)
    wait_for(lambda: name in names(table, car_labels.COLUMN_NAME), f"the tariff {name!r} in the list")
    return table
