// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// Locks of the office that have names, for checks which no single row can guard: whether a code or a name is free, whether
// an administrator remains.
namespace NamedLock {

// Until the end of the calling thread's transaction nobody else holds the lock of that name. Not before a plain read in the
// same transaction, which would go on seeing what stood there at its own beginning. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT void take(const QString &name, int database = 0);

}
