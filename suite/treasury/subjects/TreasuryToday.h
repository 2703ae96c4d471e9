// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// Cheques that are due, what is in the cash boxes and banks, and the user's own notes and calls whose next date has come, among TodayCards.
namespace TreasuryToday {

// For as long as the program runs; a second call changes nothing.
TZTREASURYDATA_EXPORT void enter();

// How a note is said to be about a record of that kind: an expression over the note's row f, such as the record's name by f.iRecordID. An empty
// one takes it away; such notes then say what they are.
TZTREASURYDATA_EXPORT void nameNotesAbout(int recordKind, const KSql &name);

}
