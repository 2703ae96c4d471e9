// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListRows.h"

#include "suite/accounting/lists/KListCells.h"

namespace KListRows {

QStringList fetched(const QList<KListColumn> &columns)
{
    QStringList names;
    for (const KListColumn &column : columns)
        names << column.column << column.lookup << column.reads;
    names.removeAll(QString());
    names.removeDuplicates();
    return names;
}

QVector<KListModel::Column> shown(const QList<KListColumn> &columns, KMySQL &record)
{
    QVector<KListModel::Column> shown;
    shown.reserve(columns.size());
    for (const KListColumn &column : columns) {
        const KMySQL::Column *value = column.show || column.cell || column.column.isEmpty() ? nullptr : record.column(column.column);
        const bool isDate = value && value->kind == KMySQL::ColumnKind::Date;
        shown.append({column.title, column.alignment, column.width, column.sortKey, isDate, column.isCode, column.key, column.countsRows, column.optional, column.widthOnceOn, column.sums, column.sumsBy});
    }
    return shown;
}

QVector<KListModel::Row> read(const QList<KListColumn> &columns, const std::shared_ptr<KMySQL> &record, int first, const std::function<bool(KMySQL &)> &warns)
{
    const auto cells = std::make_shared<KListCells>(columns, record, first, warns);
    QVector<KListModel::Row> rows;
    rows.reserve(record->GetRecordsCount());
    for (; !record->IsEOF(); record->MoveNext()) {
        KListModel::Row row;
        row.key = cells->note();
        row.maker = cells;
        row.place = static_cast<int>(rows.size());
        rows.append(std::move(row));
    }
    cells->readNames();
    return rows;
}

KListModel::Row row(const QList<KListColumn> &columns, KMySQL &record, int number)
{
    // Nobody's to delete.
    const std::shared_ptr<KMySQL> lent(std::shared_ptr<KMySQL>(), &record);
    KListModel::Row row = read(columns, lent, number).value(0);
    row.makeCells();
    return row;
}

}
