// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

#include <optional>

// How long a car has been standing in the showroom.
namespace CarStanding {

// Whole days since it was introduced, 0 on that day; none of a car that is sold, that has no such date or whose date is to come.
std::optional<int> days(const QDate &introduced, bool sold, const QDate &today);

}
