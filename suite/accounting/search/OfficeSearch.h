// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

// Accounting documents and invoices among SearchKinds.
namespace OfficeSearch {

// For as long as the program runs.
TZACCOUNTINGDATA_EXPORT void enter();

}
