// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the car list is searched by, with the grouping that lists each car once. In texts, % and _ are wildcards.
// The "from" year matches that year exactly: it is not a lower bound. The "to" date is moved on by one day and still compared
// with <=, so that the whole of the chosen day is included.
//
// The types and colours are what the two drop-downs offer.
QList<KListFilter> carFilters(const KListFilter::Choices &types = {}, const KListFilter::Choices &colors = {});
