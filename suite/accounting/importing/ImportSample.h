// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/importing/ImportKind.h"

// A file to fill in: the titles that are known, and one row as an example.
namespace ImportSample {

// A spreadsheet in place of what stood there. False when it cannot be written; nothing is left of it then.
[[nodiscard]] TZACCOUNTINGDATA_EXPORT bool write(const ImportKind &kind, const QString &path);

}
