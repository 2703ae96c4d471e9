// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListColumn.h"
#include "suite/db/records/KMySQL.h"

#include <functional>
#include <memory>

// What a list makes of its column table and a record set.
namespace KListRows {

// The record columns that the table reads, each once.
QStringList fetched(const QList<KListColumn> &columns);
// The table as the list shows it; the record's declaration says which columns are dates.
QVector<KListModel::Column> shown(const QList<KListColumn> &columns, KMySQL &record);

// All rows that the set has read, from the one on which it stands, with what is read for all of them at once; numbered from first. Their cells
// are made when they are first asked for, out of the record, which is theirs from now on. warns: whether a row stands out. Throws
// CMySQLException.
QVector<KListModel::Row> read(const QList<KListColumn> &columns, const std::shared_ptr<KMySQL> &record, int first = 1,
                              const std::function<bool(KMySQL &)> &warns = {});
// Of the row that the set stands on, with its cells; the record stays the caller's.
KListModel::Row row(const QList<KListColumn> &columns, KMySQL &record, int number);

}
