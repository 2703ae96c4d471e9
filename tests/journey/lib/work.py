# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The steps of an office's daily work, each done with the driver that the journey chose."""

import os
from dataclasses import dataclass

from . import labels
from .figures import Settings, expected, same
from .drivers import KeyboardDriver, MouseDriver
from .tree import FocusWatch, Node, State, filled_anew
from .waiting import wait_for

SETTINGS = Settings(tax=9, duty=1, tiers=((1_000_000_000, 0.5), (5_000_000_000, 0.25)))

# What a contract's vehicle cannot be without, by label and column.
CAR = {(labels.CAR_NAME, "sAutomobilName"): "پراید 131", (labels.CAR_YEAR, "sModel"): "1402",
       (labels.CAR_COLOUR, "sColor"): "سفید", (labels.CAR_PLATE, "sNumOfPlates"): "12 ب 345 ایران 67"}


def add_person(office, window, first_name, family_name, **fields):
    """In the editor that "جديد" of the persons list opened; takes the list's window."""
    editor = office.tree.window(labels.NEW_PERSON)
    office.driver.enter(labels.FIRST_NAME, first_name, editor)
    office.driver.enter(labels.FAMILY_NAME, family_name, editor)
    for label, text in fields.items():
        office.driver.enter(getattr(labels, label.upper()), text, editor)
    office.pictures.take("person", f"A person is entered: {first_name} {family_name}")
    office.driver.press(labels.OK, editor)
    office.tree.no_window(labels.NEW_PERSON)
    table = office.tree.find("tree", labels.PERSONS, window)
    wait_for(lambda: any(row[labels.COLUMN_PERSON] == f"{first_name} {family_name}" for row in table.rows()),
             "the person to stand in the list")


def write_settings(office, settings=SETTINGS, picture=None):
    """Tax, duty and two tiers of commission, in the dialog that the contract list opens."""
    office.command(labels.SETTINGS)
    dialog = office.tree.window(labels.SETTINGS)
    office.driver.enter(labels.TAX, str(settings.tax), dialog)
    office.driver.enter(labels.DUTY, str(settings.duty), dialog)
    for number, (ceiling, percent) in enumerate(settings.tiers, 1):
        office.driver.enter(labels.CEILING, str(ceiling), dialog, description=labels.tier(number))
        office.driver.enter(labels.RATE, str(percent), dialog, description=labels.tier(number))
    if picture:
        office.pictures.take(*picture)
    office.driver.press(labels.OK, dialog)
    office.tree.no_window(labels.SETTINGS)


@dataclass(frozen=True)
class PersonField:
    """Where a person is picked into: the line that F4 works in, the button beside it, and the line that shows the name."""
    line: str
    button: str
    name: str


def party(side):
    """A party of the contract: 0 for the first, 1 for the second."""
    field = labels.PERSON + labels.SIDES[side]
    return PersonField(field, field + " ...", field)


def open_picker(office, window, field):
    """The window in which a person is picked."""
    if isinstance(office.driver, KeyboardDriver):
        office.driver.focus(office.tree.find("text", field.line, window), window)
        office.input.keys("F4")
    else:
        office.driver.press(field.button, window)
    return office.tree.window(labels.PICK_PERSON)


def pick_person(office, window, field, name, search, picture=None):
    """Picks a person that the list knows."""
    take_person(office, open_picker(office, window, field), window, field, name, search, picture)


def take_person(office, picker, window, field, name, search, picture=None):
    """Searches for a person in an open picker and takes it."""
    table = office.tree.find("tree", labels.PERSONS, picker)
    # The list may hold just that person before it has searched.
    with filled_anew(table, f"the search for {search!r}"):
        office.driver.enter(labels.SEARCH_PERSON, search, picker)
    wait_for(lambda: [row[labels.COLUMN_PERSON] for row in table.rows()] == [name], f"the search to find {name!r}")
    if picture:
        office.pictures.take(*picture)
    confirm_picker(office, picker, table, window, field, name)


def confirm_picker(office, picker, table, window, field, name):
    row = wait_for(lambda: [i for i, row in enumerate(table.rows()) if row[labels.COLUMN_PERSON] == name],
                   f"{name!r} in the list")[0]
    if isinstance(office.driver, KeyboardDriver):
        # The search line keeps the focus; Return takes the selected row.
        wait_for(lambda: table.selected_rows == [row], f"{name!r} to be selected")
        office.driver.keys(picker, "Return")
    else:
        office.driver.select_row(table, row)
        office.driver.press(labels.OK, picker)
    office.tree.no_window(labels.PICK_PERSON)
    shown = office.tree.find("text", field.name, window)
    wait_for(lambda: shown.text == name, f"{field.name!r} to be {name!r}")


def open_row(office, table, row, window, column=1):
    """Opens a row of a list: Return, or a double-click on a cell that is in view."""
    if isinstance(office.driver, MouseDriver):
        office.driver.click(table.cell(row, column), times=2)
    else:
        office.driver.select_row(table, row)
        KeyboardDriver(office.tree, office.input).focus(table, window)
        office.input.keys("Return")


def new_contract(office, title=labels.EDITOR_NEW):
    office.command(labels.NEW)
    return office.tree.window(title)


def open_page(office, editor, title):
    """Brings a page of the editor to the front."""
    tab = office.tree.find("page tab", title, editor)
    if tab.has(State.SELECTED):
        return
    if isinstance(office.driver, KeyboardDriver):
        # The tabs are one stop of the Tab key; Ctrl+Tab goes through the pages.
        tabs = [node for node in Node(tab.accessible.get_parent()).children if node.role == tab.role]
        for _ in tabs:
            current = next(node for node in tabs if node.has(State.SELECTED))
            if current == tab:
                return
            office.driver.keys(editor, "ctrl+Tab")
            wait_for(lambda current=current: not current.has(State.SELECTED), "the next page")
    else:
        office.driver.press(title, editor, role="page tab")
    wait_for(lambda: tab.has(State.SELECTED), f"the page {title!r}")


def write_car(office, editor, picture=None):
    """Fills the vehicle's page, which stays in front."""
    open_page(office, editor, labels.MATTER_PAGE)
    for (label, _), text in CAR.items():
        office.driver.enter(label, typed(text, office), editor)
    if picture:
        office.pictures.take(*picture)


def typed(value, office):
    """At the keyboard numbers are typed in Persian digits."""
    text = str(value)
    if text.isascii() and text.isdigit() and isinstance(office.driver, KeyboardDriver):
        return text.translate({ord("0") + digit: persian for digit, persian in enumerate("۰۱۲۳۴۵۶۷۸۹")})
    return text


def check_car(office):
    """The vehicle as the table keeps it, whatever digits were typed."""
    row = office.database.row("SELECT * FROM AutomobilContracts")
    for (_, column), text in CAR.items():
        if row[column] != text:
            raise AssertionError(f"{column} is {row[column]!r}, not {text!r}")


def check_figures(office, editor, amount, discounts, settings=SETTINGS):
    """Commission, tax, duty, discounts and both sums to pay must have followed the amount and the discounts."""
    figures = expected(settings, amount, discounts)
    wanted = {labels.COMMISSION: figures.commission}
    for side, party in enumerate(labels.SIDES):
        wanted |= {labels.TAX + party: figures.tax, labels.DUTY + party: figures.duty,
                   labels.DISCOUNT + party: figures.discounts[side], labels.PAYS + party: figures.pays[side]}
    for label, value in wanted.items():
        node = office.tree.find("text", label, editor)
        wait_for(lambda node=node, value=value: same(node.number, value),
                 lambda node=node, label=label, value=value: f"{label!r} to come to {value:,.0f}; it is {node.text!r}",
                 seconds=5)
    return figures


def search_archive(office, state):
    """Fills the list with the contracts of an archive state."""
    office.driver.choose(labels.ARCHIVE_STATE, state, office.main)
    office.command(labels.SEARCH)


def choose_from_menu(office, open_menu, text, picture=None):
    """Runs an entry of a menu that is no part of the window for a screen reader: it is followed by its focus, at the keyboard."""
    watch = FocusWatch()
    open_menu()

    def current():
        watch.listen()
        return watch.node.name if watch.node and watch.node.role.endswith("menu item") else None

    wait_for(current, "the menu")
    if picture:
        office.pictures.take(*picture)
    first = current()
    while current() != text:
        before = current()
        office.input.keys("Down")
        wait_for(lambda before=before: current() != before, "the next entry")
        if current() == first:
            raise AssertionError(f"the menu has no {text!r}")
    office.input.keys("Return")


def answer_file_window(office, title, path, picture=None):
    """Names a file in the window that asks for one."""
    dialog = office.tree.window(title)
    office.driver.ready(dialog)
    name = wait_for(lambda: next((node for node in dialog.shown_descendants() if node.role == "text" and node.focused), None),
                    "the entry line for the file's name")
    name.set_text(path)
    if picture:
        office.pictures.take(*picture)
    office.driver.keys(dialog, "Return")
    office.tree.no_window(title)


def save_file(office, window, command, path, picture=None):
    """Has the window store a file; returns the path of the complete file."""
    office.driver.press(command, window)
    answer_file_window(office, labels.SAVE_FILE, path, picture)
    name = os.path.basename(path)
    wait_for(lambda: os.path.getsize(path) > 0, f"{name} to be written")
    office.message(labels.NOTICE, labels.FILE_SAVED.format(name))
    office.driver.ready(window)
    return path
