// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

#include <QDateTime>
#include <QString>

// Clauses that the filters of the lists share. Each begins with " AND ", and is empty when nothing is asked; start is the
// text up to the value, for example " AND ai.dateIntroduction >= ".
namespace ListClauses {

// state: position in WordLists::archiveStates. Without an alias for "not archived", where a list's filter has none there.
QString archive(int state, int currentUserID, const char *notArchived, const char *column);
KListFilter::Clause archive(const char *notArchived, const char *column);
// The day as SQL text; an invalid date asks nothing. upTo is one day later, so that all of the chosen day is in.
QString from(const char *start, const QDateTime &date);
QString upTo(const char *start, const QDateTime &date);
// Texts are joined, never formatted: a typed % is no placeholder.
QString part(const char *column, const QString &text);
// 0 asks nothing.
QString number(const char *start, int value);
// Six decimals, as the C format "%f"; 0 asks nothing.
QString amount(const char *start, double value);

// The clauses as a condition: without the " AND " that the first one begins with.
QString condition(const QString &clauses);

}
