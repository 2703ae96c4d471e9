// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// The clauses that filters are made with. Texts are literals that outlive the program's work; start is the text up to the value,
// for example " AND ai.dateIntroduction >= ". Texts are joined, never formatted: a typed % is no placeholder.
namespace FilterClauses {

using Clause = KListFilter::Clause;

// A whole number; 0 asks nothing.
TZACCOUNTINGDATA_EXPORT Clause number(const char *start);
// A position in a list that opens with the word for "all": the stored value is the position less one, and 0 asks nothing.
TZACCOUNTINGDATA_EXPORT Clause position(const char *start);
// Six decimals, as the C format "%f"; 0 asks nothing.
TZACCOUNTINGDATA_EXPORT Clause amount(const char *start);
// The day as SQL text; an invalid date asks nothing. upTo is one day later, so that all of the chosen day is in.
TZACCOUNTINGDATA_EXPORT Clause from(const char *start);
TZACCOUNTINGDATA_EXPORT Clause upTo(const char *start);
// " AND <column> LIKE '%<text>%'"; an empty text asks nothing.
TZACCOUNTINGDATA_EXPORT Clause part(const char *column);
// One clause while a flag is set, another while it is not; an empty one asks nothing.
TZACCOUNTINGDATA_EXPORT Clause flag(const char *set, const char *notSet);
TZACCOUNTINGDATA_EXPORT Clause always(const char *clause);

}
