// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// Filter of the list of invoices. Void ones are left out unless requested; the whole last day is included.
//
// The types are those that the drop-down offers.
QList<KListFilter> invoiceFilters(const KListFilter::Choices &types = {});
