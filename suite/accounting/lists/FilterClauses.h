// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// The clauses that filters are made with. start is the text up to the value, for example " AND ai.dateIntroduction >= ".
namespace FilterClauses {

using Clause = KListFilter::Clause;

// A whole number; 0 asks nothing.
TZACCOUNTINGDATA_EXPORT Clause number(KSql start);
// A position in a list that opens with the word for "all": the stored value is the position less one, and 0 asks nothing.
TZACCOUNTINGDATA_EXPORT Clause position(KSql start);
// Six decimals, as the C format "%f"; 0 asks nothing.
TZACCOUNTINGDATA_EXPORT Clause amount(KSql start);
// The day as SQL text; an invalid date asks nothing. upTo is one day later, so that all of the chosen day is in.
TZACCOUNTINGDATA_EXPORT Clause from(KSql start);
TZACCOUNTINGDATA_EXPORT Clause upTo(KSql start);
// " AND " and contains or matches; an empty text asks nothing.
TZACCOUNTINGDATA_EXPORT Clause part(KSql column);
TZACCOUNTINGDATA_EXPORT Clause pattern(KSql column);
// One clause while a flag is set, another while it is not; an empty one asks nothing.
TZACCOUNTINGDATA_EXPORT Clause flag(KSql set, KSql notSet);
TZACCOUNTINGDATA_EXPORT Clause always(KSql clause);

// The column holds the text, in whatever way it is written (SearchPattern), each of its characters standing for itself.
// <column> LIKE '%<text>%' where there is one way only. FALSE for a text that no table can hold.
TZACCOUNTINGDATA_EXPORT KSql contains(const KSql &column, const QString &text);
// The same with a typed % for any characters and a typed _ for any one.
TZACCOUNTINGDATA_EXPORT KSql matches(const KSql &column, const QString &pattern);
// The column holds the text and nothing else, in whatever way it is written.
TZACCOUNTINGDATA_EXPORT KSql isSame(const KSql &column, const QString &text);

}
