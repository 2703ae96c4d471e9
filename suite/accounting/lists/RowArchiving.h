// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <functional>

class KMySQL;

// Archives a row of a list as one unit of work.
namespace RowArchiving {

// archive runs on the record, loaded and locked. False when the row is archived already. Throws RowChanged when it is gone.
[[nodiscard]] TZACCOUNTINGDATA_EXPORT bool run(KMySQL &record, int key, const std::function<void(KMySQL &)> &archive);

}
