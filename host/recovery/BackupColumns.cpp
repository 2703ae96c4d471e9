// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/BackupColumns.h"

using namespace Qt::StringLiterals;

namespace {

using Entry = BackupListing::Entry;

struct BackupColumn
{
    KListModel::Column column;
    KListModel::Cell (*cell)(const Entry &entry);
};

const QList<BackupColumn> &table()
{
    static const QList<BackupColumn> table{
        {{.title = u"تاریخ"_s, .alignment = Qt::AlignHCenter, .width = 56, .isDate = true, .key = u"date"_s},
         [](const Entry &entry) { return KListModel::Cell{BackupListing::dateText(entry.file)}; }},
        {{.title = u"ساعت"_s, .alignment = Qt::AlignHCenter, .width = 36, .isDate = true, .key = u"time"_s},
         [](const Entry &entry) { return KListModel::Cell{BackupListing::timeText(entry.file)}; }},
        {{.title = u"علت"_s, .alignment = Qt::AlignRight, .width = 90, .key = u"reason"_s},
         [](const Entry &entry) { return KListModel::Cell{BackupListing::reasonText(entry.file)}; }},
        {{.title = u"اندازه"_s, .alignment = Qt::AlignRight, .width = 76, .key = u"size"_s},
         [](const Entry &entry) { return KListModel::Cell{BackupListing::sizeText(entry.file.size())}; }},
        {{.title = u"آزمون بازگرداندن"_s, .alignment = Qt::AlignRight, .width = 140, .key = u"verified"_s},
         [](const Entry &entry) {
             return KListModel::Cell{BackupListing::verificationText(entry.file), {}, BackupListing::isBad(entry.file)};
         }},
        {{.title = u"نسخه برنامه"_s, .alignment = Qt::AlignHCenter, .width = 56, .isCode = true, .key = u"program"_s},
         [](const Entry &entry) { return KListModel::Cell{entry.file.manifest() ? entry.file.manifest()->program : QString()}; }},
        {{.title = u"رمز"_s, .alignment = Qt::AlignHCenter, .width = 36, .key = u"encrypted"_s},
         [](const Entry &entry) { return KListModel::Cell{entry.file.isEncrypted() ? u"دارد"_s : u"ندارد"_s}; }},
        {{.title = u"جا"_s, .alignment = Qt::AlignRight, .width = 90, .key = u"place"_s},
         [](const Entry &entry) { return KListModel::Cell{entry.place()}; }},
    };
    return table;
}

}

QVector<KListModel::Column> BackupColumns::columns()
{
    QVector<KListModel::Column> columns;
    for (const BackupColumn &column : table())
        columns.append(column.column);
    return columns;
}

QVector<KListModel::Row> BackupColumns::rows(const QList<BackupListing::Entry> &entries)
{
    QVector<KListModel::Row> rows;
    for (const Entry &entry : entries) {
        KListModel::Row row;
        row.key = int(rows.size()) + 1;
        for (const BackupColumn &column : table())
            row.cells.append(column.cell(entry));
        rows.append(row);
    }
    return rows;
}
