// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/history/HistoryEntry.h"
#include "suite/accounting/TzAccountingDataExport.h"

// Makes one entry of what one save noted of a record in several steps: its row, the rows below it, the number of its document.
namespace HistoryMerge {

// Entries of one record by one user at one computer, within two seconds, none of them but the oldest anything else than a change: the values
// before are the oldest's and those after the newest's; what came back to what it was is left out, unless nothing else would be left. Settings are
// one record. In whatever order they were read; returned by their keys, the newest first.
TZACCOUNTINGDATA_EXPORT QList<HistoryEntry> of(QList<HistoryEntry> entries);

}
