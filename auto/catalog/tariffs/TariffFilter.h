// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the list of notary tariffs can be asked for: a part of the name, in which % and _ are wildcards, and whether the
// inactive ones are among them.
QList<KListFilter> tariffFilters();
