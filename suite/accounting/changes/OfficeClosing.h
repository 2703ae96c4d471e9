// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

// Whether the database may be changed, asked where the change is made.
namespace OfficeClosing {

// Throws KAccountingError, which says who closed the database and when as far as that is known, in a closed one. Within a
// transaction nobody closes it until that ends. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT void requireOpen(int database = 0);
// That it will be asked (KReadAhead).
TZACCOUNTINGDATA_EXPORT void expect(int database = 0);

}
