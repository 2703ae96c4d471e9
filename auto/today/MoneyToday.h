// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

// The money that the dealership waits for. Throws CMySQLException.
namespace MoneyToday {

// Unpaid instalments up to a week ahead, with what is left of each.
TodayContent instalments(const TodayFrame &frame);
// Contracts whose commission is owed for longer than the frame says; those of the last half year, the oldest first.
TodayContent unsettled(const TodayFrame &frame);

}
