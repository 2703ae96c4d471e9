// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the demand list is searched by, with the grouping that lists each demand once. Years and amounts bound the range that
// the demand itself states: a demand is found if its wanted range is within the searched one. The "to" date is moved on by one
// day and still compared with <=, so that the whole of the chosen day is included.
//
// The types and colours are what the two drop-downs offer.
QList<KListFilter> demandFilters(const KListFilter::Choices &types = {}, const KListFilter::Choices &colors = {});
