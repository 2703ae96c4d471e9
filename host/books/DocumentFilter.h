// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the list of accounting documents can be asked for; of the last day the whole is in.
//
// The years are what the drop-down offers.
QList<KListFilter> documentFilters(const KListFilter::Choices &years = {});
