// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the list of invoices can be asked for. Void ones are left out unless they are asked for; of the last day the whole is in.
//
// The types are what the drop-down offers.
QList<KListFilter> invoiceFilters(const KListFilter::Choices &types = {});
