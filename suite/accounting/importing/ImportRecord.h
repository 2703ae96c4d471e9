// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/ImportField.h"
#include "suite/accounting/TzAccountingDataExport.h"

class KMySQL;

// Between the values of a row and the record that they are written into.
namespace ImportRecord {

// Refuses texts that the record's columns do not hold. Asks the database once for each column.
TZACCOUNTINGDATA_EXPORT void requireFits(KMySQL &record, const QList<ImportField> &fields, ImportRow &row);
// Sets the columns that have the name of a value; the others are the kind's own.
TZACCOUNTINGDATA_EXPORT void fill(KMySQL &record, const ImportRow &row);

}
