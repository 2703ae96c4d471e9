// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KChangedValues.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QStringList>

#include <optional>

// What became of rows that are noted as one value of the record they belong to: the lines of text that only one of the two states has,
// so that a long plan of which one row changed is noted by that row.
namespace ChangedLines {

// Nothing where both hold the same lines, in whatever order.
TZACCOUNTINGDATA_EXPORT std::optional<KChangedValue> between(const QString &column, const QStringList &before, const QStringList &after);

}
