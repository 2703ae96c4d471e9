// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the car list can be asked for, with the grouping that lists each car once. Texts go into the statement as they are typed.
// The "from" year is that year exactly: it does not bound from below. The "to" date is moved on by one day and still compared
// with <=, so that all of the chosen day is in.
//
// The types and colours are what the two drop-downs offer.
QList<KListFilter> carFilters(const KListFilter::Choices &types = {}, const KListFilter::Choices &colors = {});
