// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentValues.h"

#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

const QString dayColumn = u"date"_s;
const QString textColumn = u"sDesc"_s;
const QString rowsColumn = u"rows"_s;
// A number may go from a deleted document to a new one: which of them was read.
const QString headerColumn = u"iHeaderID"_s;

QString textOfRows(const QList<DocumentRow> &rows)
{
    return documentLines(rows).join(u'\n');
}

QString shownRows(const QString &text)
{
    QStringList shown;
    for (const QString &line : text.split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(u'\t');
        const int account = parts.value(0).toInt();
        const QString person = KLookup::name<CTblDocs>(u"iPersonID", parts.value(1).toInt());
        shown.append(QStringList{u"%1 %2"_s.arg(account).arg(AccountChart::nameOf(account)), person, parts.value(4),
                                 u"بد %1 بس %2"_s.arg(DToMoney(parts.value(2).toDouble()), DToMoney(parts.value(3).toDouble()))}
                         .join(u' ')
                         .simplified());
    }
    return shown.join(u'\n');
}

}

DocumentValues::DocumentValues(int database)
    : CTblValues(u"Documents"_s, {{dayColumn, u"تاریخ"_s}, {textColumn, u"شرح سند"_s}, {rowsColumn, u"ردیف‌ها"_s}, {headerColumn, {}}},
                 database)
{
}

DocumentValues::~DocumentValues() = default;

void DocumentValues::set(const DocumentContent &document, qint32 headerKey)
{
    setKey(headerKey);
    setText(headerColumn, QString::number(headerKey));
    setText(dayColumn, document.date.toString(Qt::ISODate));
    setText(textColumn, document.description);
    setText(rowsColumn, textOfRows(document.rows));
}

qint32 DocumentValues::headerOf(const KRowValues &values)
{
    return values.value(headerColumn).toInt();
}

DocumentContent DocumentValues::merged(const DocumentContent &theirs, const DocumentContent &mine)
{
    DocumentContent merged = theirs;
    if (text(dayColumn) == mine.date.toString(Qt::ISODate))
        merged.date = mine.date;
    if (text(textColumn) == mine.description)
        merged.description = mine.description;
    if (text(rowsColumn) == textOfRows(mine.rows))
        merged.rows = mine.rows;
    return merged;
}

std::optional<QString> DocumentValues::shown(const QString &column, const QVariant &value)
{
    if (column == dayColumn)
        return shamsiText(QDateTime::fromString(value.toString(), Qt::ISODate).date());
    if (column == rowsColumn)
        return shownRows(value.toString());
    return std::nullopt;
}
