# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shamsi dates, counted from one known new year's day."""

import datetime

_KNOWN_YEAR, _KNOWN_DAY = 1405, datetime.date(2026, 3, 21)
_MONTHS = (31,) * 6 + (30,) * 6


def is_leap(year):
    return (25 * year + 11) % 33 < 8


def _new_year(year):
    step = 1 if year > _KNOWN_YEAR else -1
    first = min(year, _KNOWN_YEAR)
    days = sum(365 + is_leap(between) for between in range(first, max(year, _KNOWN_YEAR)))
    return _KNOWN_DAY + datetime.timedelta(step * days)


def to_date(year, month, day):
    return _new_year(year) + datetime.timedelta(sum(_MONTHS[:month - 1]) + day - 1)


def text(date):
    """YYYY/MM/DD of an ordinary date."""
    year = date.year - 621
    if date < _new_year(year):
        year -= 1
    days = (date - _new_year(year)).days
    month = 0
    while month < 11 and days >= _MONTHS[month]:
        days -= _MONTHS[month]
        month += 1
    return f"{year:04}/{month + 1:02}/{days + 1:02}"


def text_of_sql(value):
    """The same of what the database's client prints; empty for none."""
    return text(datetime.date.fromisoformat(value[:10])) if value else ""


def season_bounds(season, year):
    """The first day of a season (0 is spring) and the day after its last."""
    first = to_date(year, 3 * season + 1, 1)
    return first, to_date(year + 1, 1, 1) if season == 3 else to_date(year, 3 * season + 4, 1)
