// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractFilter.h"

#include "suite/utility/ShamsiDate.h"

namespace {

// Positions of WordLists::archiveStates.
enum ArchiveState {
    NotArchived = 1,
    ArchivedBySelf = 2,
    ArchivedByOthers = 3
};

QString archiveClause(const ContractCriteria &criteria)
{
    switch (criteria.archiveState) {
    case NotArchived:
        return QStringLiteral(" AND iArchiveUserID=0");
    case ArchivedBySelf:
        return QString::asprintf(" AND iArchiveUserID=%d", criteria.currentUserID);
    case ArchivedByOthers:
        return QString::asprintf(" AND iArchiveUserID<>0 AND iArchiveUserID<>%d", criteria.currentUserID);
    default:
        return {};
    }
}

QString fromClause(const char *comparison, const QDateTime &date)
{
    return date.isValid() ? QLatin1String(comparison) + DateToSQL(date) : QString();
}

QString toClause(const char *comparison, const QDateTime &date)
{
    return date.isValid() ? QLatin1String(comparison) + DateToSQL(date.addDays(1)) : QString();
}

// Texts are joined, never formatted: a typed % is no placeholder.
QString partClause(const char *column, const QString &part)
{
    return part.isEmpty() ? QString()
                          : QLatin1String(" AND ") + QLatin1String(column) + QLatin1String(" LIKE '%") + part
            + QLatin1String("%'");
}

}

QString contractFilter(const ContractCriteria &criteria)
{
    QString filter;
    if (criteria.activeOnly)
        filter += QString::asprintf(" AND iStatus = %d", 0);
    if (criteria.firstPersonID != 0)
        filter += QString::asprintf(" AND iPersonFirstID=%d", criteria.firstPersonID);
    if (criteria.returnState > 0)
        filter += QString::asprintf(" AND bReturn=%d", criteria.returnState - 1);
    filter += archiveClause(criteria);
    if (criteria.secondPersonID != 0)
        filter += QString::asprintf(" AND iPersonSecondID=%d", criteria.secondPersonID);
    if (criteria.contractType > 0)
        filter += QString::asprintf(" AND iContractType = %d", criteria.contractType - 1);
    filter += fromClause(" AND dateContract>=", criteria.contractFrom);
    filter += toClause(" AND dateContract<=", criteria.contractTo);
    filter += partClause("sDesc", criteria.descriptionPart);
    filter += partClause("sExplain", criteria.explanationPart);
    filter += fromClause(" AND dateExpiration>=", criteria.expirationFrom);
    filter += toClause(" AND dateExpiration <= ", criteria.expirationTo);

    const QLatin1String joint(" AND ");
    return filter.startsWith(joint) ? filter.mid(joint.size()) : filter;
}
