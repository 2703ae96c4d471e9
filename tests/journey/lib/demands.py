# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A customer's demand and its reminder."""

from . import car_labels, labels, work
from .cars import person_field
from .waiting import wait_for

CUSTOMER = person_field("")


def record(office, customer, choices, entries):
    """A saved demand with a reminder for tomorrow."""
    office.command(labels.NEW)
    editor = office.tree.window(car_labels.DEMAND_NEW)
    office.tree.check_names(editor)
    office.driver.press(labels.OK, editor)
    office.message(labels.WARNING, car_labels.NO_CUSTOMER)
    picker = office.tree.window(labels.PICK_PERSON)
    work.take_person(office, picker, editor, CUSTOMER, customer, customer.split(" ")[1])
    for label, text in choices.items():
        office.driver.choose(label, text, editor)
    for label, value in entries.items():
        office.driver.enter(label, work.typed(value, office), editor)
    remind(office, editor)
    office.pictures.take("demand", "What the customer wants, and when to be reminded of it")
    office.driver.press(labels.OK, editor)
    office.tree.no_window(car_labels.DEMAND_NEW)


def remind(office, editor):
    node = office.driver.toggle(car_labels.REMIND, editor)
    window = office.tree.window(car_labels.REMINDER_NEW)
    office.tree.check_names(window)
    office.pictures.take("reminder", "A reminder is proposed for tomorrow, with the customer's name")
    office.driver.press(labels.OK, window)
    office.tree.no_window(car_labels.REMINDER_NEW)
    wait_for(lambda: node.checked, "the demand to show that it is remembered")


def let_reminder_fall_due(office):
    """Once the program has started its database."""
    office.tree.window(labels.LOGIN, seconds=60)
    office.database.rows("UPDATE Alarms SET date=DATE_SUB(NOW(), INTERVAL 1 HOUR)")


def deal_with_reminder(office, customer):
    """The due reminder appears at login; once closed, it stays in the status line until it is dealt with."""
    window = office.tree.window(car_labels.DUE_REMINDERS)
    office.tree.check_names(window)
    table = office.tree.find("tree", car_labels.DUE_LIST, window)
    wait_for(lambda: table.row_count == 1, "the due reminder")
    check_text = table.row(0)[car_labels.COLUMN_DESCRIPTION]
    if customer not in check_text:
        raise AssertionError(f"the reminder says {check_text!r}")
    office.pictures.take("reminder-due", "The login tells what was to be remembered")
    office.driver.press(car_labels.CLOSE, window)
    office.tree.no_window(car_labels.DUE_REMINDERS)
    wait_for(lambda: office.tree.shows("push button", car_labels.BADGE, office.main), "the badge of one due reminder")
