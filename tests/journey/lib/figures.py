# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The expected figures of a contract, computed here from the office's settings alone."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Settings:
    """Percentages of the commission, and two tiers (ceiling, percentage of the amount)."""
    tax: float
    duty: float
    tiers: tuple


@dataclass(frozen=True)
class Figures:
    commission: float
    tax: float
    duty: float
    discounts: tuple
    pays: tuple


def expected(settings, amount, discount_percents):
    """For two ordinary parties with a discount percentage each."""
    percent = next(percent for ceiling, percent in settings.tiers if amount <= ceiling)
    commission = amount * percent / 100
    tax = commission * settings.tax / 100
    duty = commission * settings.duty / 100
    discounts = tuple(commission * discount / 100 for discount in discount_percents)
    pays = tuple(commission + tax + duty - discount for discount in discounts)
    return Figures(commission, tax, duty, discounts, pays)


def same(one, other):
    return abs(one - other) < 0.0001
