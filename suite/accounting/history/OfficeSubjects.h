// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

// The kinds of records of the office itself among RecordSubjects: users, settings, books, invoices.
namespace OfficeSubjects {

// For as long as the program runs; a second call changes nothing.
TZACCOUNTINGDATA_EXPORT void enter();

}
