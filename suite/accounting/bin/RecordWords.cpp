// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RecordWords.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/records/KMySQL.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using RecordWords::Line;

void setFrom(const KMySQL::Column &column, const KWholeRow &row)
{
    const QString text = row.text(column.name);
    switch (column.kind) {
    case KMySQL::ColumnKind::Date:
        column.setValue(QDateTime(QDate::fromString(text.left(10), Qt::ISODate), text.size() > 10 ? QTime::fromString(text.mid(11, 8), Qt::ISODate) : QTime(0, 0), Qt::UTC));
        break;
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Bool:
        column.setValue(row.number(column.name));
        break;
    case KMySQL::ColumnKind::Double:
        column.setValue(text.toDouble());
        break;
    case KMySQL::ColumnKind::Text:
        column.setValue(text);
        break;
    case KMySQL::ColumnKind::LongBlob:
        column.setValue(row.bytes(column.name));
        break;
    }
}

QString valueWords(KMySQL &record, const KMySQL::Column &column)
{
    if (!record.nameSource(column.name).table.isEmpty()) {
        const QString name = KLookup::name(record, column.name);
        return name.isEmpty() ? QString::number(column.value().toInt()) : name;
    }
    switch (column.kind) {
    case KMySQL::ColumnKind::Date: {
        const QDateTime when = column.value().toDateTime();
        const QString day = shamsiText(when.date());
        return when.time() == QTime(0, 0) ? day : day + u' ' + when.time().toString(u"HH:mm"_s);
    }
    case KMySQL::ColumnKind::Double:
        return DToMoney(column.value().toDouble());
    case KMySQL::ColumnKind::Bool:
        return column.value().toInt() != 0 ? u"بلی"_s : u"خیر"_s;
    case KMySQL::ColumnKind::LongBlob:
        return u"%1 کیلوبایت"_s.arg((column.value().toByteArray().size() + 1023) / 1024);
    case KMySQL::ColumnKind::Long:
    case KMySQL::ColumnKind::Text:
        break;
    }
    return column.value().toString().simplified();
}

void addLines(QList<Line> &lines, const KWholeRow &row, KMySQL &record, const RecordSubject *subject)
{
    for (const KMySQL::Column &column : record.columns())
        setFrom(column, row);
    for (const KMySQL::Column &column : record.columns()) {
        if (column.name == u"iID" || column.isEmpty())
            continue;
        QString caption = subject && subject->caption ? subject->caption(column.name) : QString();
        if (caption.isEmpty())
            caption = column.caption.trimmed();
        QString value = subject && subject->word ? subject->word(column.name, column.value()) : QString();
        if (value.isEmpty())
            value = valueWords(record, column);
        if (!caption.isEmpty() && !value.isEmpty())
            lines.append({caption, value});
    }
}

}

QList<Line> RecordWords::ofRow(const KWholeRow &row, int database)
{
    QList<Line> lines;
    if (const RecordSubject *subject = RecordSubjects::of(row.table()))
        addLines(lines, row, *subject->make(database), subject);
    return lines;
}

QList<Line> RecordWords::of(const RecordPackage &package, int database)
{
    const RecordParts *parts = BinnedRecords::of(package.table());
    if (!parts || package.isEmpty())
        return {};
    QList<Line> lines = ofRow(package.row(package.rows().constFirst()), database);
    for (const RecordPart &part : parts->parts) {
        int number = 0;
        for (const qint32 key : package.keysOf(part.table)) {
            const RecordSubject *subject = RecordSubjects::of(part.table);
            const std::unique_ptr<KMySQL> record = part.make ? part.make(database) : subject ? subject->make(database)
                                                                                             : nullptr;
            if (!record)
                continue;
            ++number;
            const bool isOne = part.table == u"Documents";
            lines.append({isOne ? part.word : u"%1 %2"_s.arg(part.word.isEmpty() ? u"ردیف سند"_s : part.word, QString::number(number)), {}});
            addLines(lines, package.row({part.table, key}), *record, subject);
        }
    }
    return lines;
}
