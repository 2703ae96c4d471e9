// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"
#include "suite/crm/TzCRMDataExport.h"

// What the list of the user's own reminders can be asked for: a part of the description, and whether the done ones are among
// them.
TZCRMDATA_EXPORT QList<KListFilter> alarmFilters();
