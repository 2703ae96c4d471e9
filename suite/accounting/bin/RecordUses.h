// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

#include <QHash>
#include <QString>

// What the office has written since about records of a table: rows of other tables that name them, and what was attached to them.
namespace RecordUses {

// For each of the records that is used, the words for where, as "قرارداد، پرونده". keys: a statement that selects keys of the table as its
// one column. One statement for each column that may name such a record. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT QHash<qint32, QString> of(const QString &table, const KSql &keys, int database = 0);

}
