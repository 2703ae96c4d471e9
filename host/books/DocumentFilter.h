// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// Filter of the list of accounting documents; the whole last day is included.
//
// The years are those that the drop-down offers.
QList<KListFilter> documentFilters(const KListFilter::Choices &years = {});
