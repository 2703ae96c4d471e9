// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/PlanTrace.h"

#include "suite/accounting/changes/ChangedLines.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

const QString rowsColumn = u"rows"_s;
// Behind it stands the number of the instalment.
const QString paidColumn = u"paid/"_s;
const QString payerColumn = u"iPersonID"_s;

// The parts of a line by tabs: number, day, amount, interest.
QStringList linesOf(const QList<PlanTrace::Line> &rows)
{
    QStringList lines;
    for (const PlanTrace::Line &row : rows)
        lines.append(QStringList{QString::number(row.number), row.due.toString(Qt::ISODate), QString::number(row.amount, 'g', 17), QString::number(row.interest, 'g', 17)}.join(u'\t'));
    return lines;
}

QString shownLine(const QString &line)
{
    const QStringList parts = line.split(u'\t');
    const QString day = shamsiText(QDate::fromString(parts.value(1), Qt::ISODate));
    QString shown = u"قسط %1: %2، %3"_s.arg(parts.value(0), day, DToMoney(parts.value(2).toDouble()));
    if (const double interest = parts.value(3).toDouble(); !IsEquals(interest, 0))
        shown += u" (سود %1)"_s.arg(DToMoney(interest));
    return shown;
}

QString shownPaid(const QString &text)
{
    const QStringList parts = text.split(u'\t');
    return u"قسط %1 %2"_s.arg(parts.value(0), parts.value(1) == "1"_L1 ? u"پرداخت شده"_s : u"پرداخت نشده"_s);
}

QString paidText(int number, bool paid)
{
    return u"%1\t%2"_s.arg(number).arg(paid ? 1 : 0);
}

}

QString PlanTrace::name()
{
    return u"InstalmentPlan"_s;
}

void PlanTrace::noteRows(int contractID, KChange::Kind kind, const QList<Line> &before, const QList<Line> &after)
{
    if (const auto rows = ChangedLines::between(rowsColumn, linesOf(before), linesOf(after)))
        KChangeLog::note(name(), contractID, kind, 0, {*rows});
}

void PlanTrace::notePaid(int contractID, int number, bool paid)
{
    KChangeLog::note(name(), contractID, KChange::Kind::Changed, 0, {{paidColumn + QString::number(number), paidText(number, !paid), paidText(number, paid)}});
}

void PlanTrace::notePayer(int contractID, int before, int after)
{
    if (before != after)
        KChangeLog::note(name(), contractID, KChange::Kind::Changed, 0, {{payerColumn, before, after}});
}

QString PlanTrace::captionOf(const QString &column)
{
    if (column == rowsColumn)
        return u"اقساط"_s;
    if (column.startsWith(paidColumn))
        return u"پرداخت"_s;
    return column == payerColumn ? u"پرداخت کننده"_s : QString();
}

QString PlanTrace::wordsOf(const QString &column, const QVariant &value)
{
    if (column.startsWith(paidColumn))
        return shownPaid(value.toString());
    if (column == payerColumn)
        return KLookup::name({u"Persons"_s, u"iID"_s, u"sName2"_s}, value.toInt());
    QStringList shown;
    for (const QString &line : column == rowsColumn ? value.toString().split(u'\n', Qt::SkipEmptyParts) : QStringList())
        shown.append(shownLine(line));
    return shown.join(u'\n');
}
