// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

// The cars on the lot: those that are not sold, active and not archived. Throws CMySQLException.
namespace LotToday {

// Cars that came since yesterday with the demands that they fit, the better matches first.
TodayContent matches(const TodayFrame &frame);
// Cars that stand for longer than the frame says, with what is expected of them over what was paid and spent; and those whose insurance ends
// within a month, or has ended, by a day that is written among the words about it.
QList<TodayContent> standing(const TodayFrame &frame);

// The first day of the Shamsi calendar that is written somewhere in the text; invalid where there is none.
QDate dayIn(const QString &text);

}
