// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the contract list is searched by. "To" dates are moved on by one day and still compared with <=, so that the whole
// chosen day is included (and what is dated at the very start of the next day). A reset keeps the archive and return filters.
QList<KListFilter> contractFilters();
