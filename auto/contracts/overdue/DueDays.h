// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>

#include <array>

// Which instalments are due when, counted from a day that is today.
namespace DueDays {

// How far the overdue desk looks. The numbers are those of its filter.
enum Span : int {
    AllOpen = 0,
    UpToToday = 1, // due today or overdue
    Today = 2,
    ThisWeek = 3, // the Iranian week that holds today, Saturday to Friday
    Overdue = 4
};
inline constexpr std::array spans{UpToToday, Today, ThisWeek, Overdue, AllOpen}; // in the order in which they are offered

QString name(int span);

// Days from one to the other, both within; an invalid one is open.
struct Range
{
    QDate from;
    QDate to;

    bool operator==(const Range &) const = default;
};
// An unknown span is all that is open.
Range range(int span, const QDate &today);

// 0 on the day itself, before it, and without a day.
int overdue(const QDate &due, const QDate &today);

}
