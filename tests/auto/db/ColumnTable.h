// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"

#include <QFile>
#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

// Compares the bindings of a record class with their table beside the tests: one line per column, in order, with
// kind, caption, lookup table, lookup key and lookup display.
namespace ColumnTable {

inline QStringList bound(KMySQL &record)
{
    static const QHash<KMySQL::ColumnKind, QString> kinds{
        {KMySQL::ColumnKind::Long, u"long"_s},
        {KMySQL::ColumnKind::Text, u"text"_s},
        {KMySQL::ColumnKind::Date, u"date"_s},
        {KMySQL::ColumnKind::Double, u"double"_s},
        {KMySQL::ColumnKind::Bool, u"bool"_s},
        {KMySQL::ColumnKind::LongBlob, u"blob"_s},
    };
    QStringList lines;
    for (const KMySQL::Column &column : record.columns())
        lines << QStringList{column.name, kinds.value(column.kind), column.caption, column.lookupTable, column.lookupKey,
                             column.lookupDisplay}
                     .join(u'\t');
    return lines;
}

// Of a file beside the tests. Empty when the file cannot be read, which equals no record class.
inline QStringList wanted(const QString &fileName)
{
    QFile table(u"" TZ_TEST_SOURCE "/"_s + fileName);
    if (!table.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(table.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) { return line.startsWith(u'#'); });
    return lines;
}

}
