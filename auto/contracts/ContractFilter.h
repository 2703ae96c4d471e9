// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the contract list can be asked for. "To" dates are moved on by one day and still compared with <=, so that all of the
// chosen day is in (and what is dated on the start of the next day). A reset keeps the archive and return filters.
QList<KListFilter> contractFilters();
