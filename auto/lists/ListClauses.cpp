// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/lists/ListClauses.h"

#include "suite/utility/values/ShamsiDate.h"

namespace {

// Positions of WordLists::archiveStates.
enum ArchiveState {
    NotArchived = 1,
    ArchivedBySelf = 2,
    ArchivedByOthers = 3
};

}

QString ListClauses::archive(int state, int currentUserID, const char *notArchived, const char *column)
{
    switch (state) {
    case NotArchived:
        return QString::asprintf(" AND %s=0", notArchived);
    case ArchivedBySelf:
        return QString::asprintf(" AND %s=%d", column, currentUserID);
    case ArchivedByOthers:
        return QString::asprintf(" AND %s<>0 AND %s<>%d", column, column, currentUserID);
    default:
        return {};
    }
}

KListFilter::Clause ListClauses::archive(const char *notArchived, const char *column)
{
    return [notArchived, column](const QVariant &state, int userID) { return archive(state.toInt(), userID, notArchived, column); };
}

QString ListClauses::from(const char *start, const QDateTime &date)
{
    return date.isValid() ? QLatin1String(start) + DateToSQL(date) : QString();
}

QString ListClauses::upTo(const char *start, const QDateTime &date)
{
    return date.isValid() ? QLatin1String(start) + DateToSQL(date.addDays(1)) : QString();
}

QString ListClauses::part(const char *column, const QString &text)
{
    return text.isEmpty() ? QString()
                          : QLatin1String(" AND ") + QLatin1String(column) + QLatin1String(" LIKE '%") + text
            + QLatin1String("%'");
}

QString ListClauses::number(const char *start, int value)
{
    return value == 0 ? QString() : QLatin1String(start) + QString::number(value);
}

QString ListClauses::amount(const char *start, double value)
{
    return value == 0 ? QString() : QLatin1String(start) + QString::number(value, 'f', 6);
}

QString ListClauses::condition(const QString &clauses)
{
    const QLatin1String joint(" AND ");
    return clauses.startsWith(joint) ? clauses.mid(joint.size()) : clauses;
}
