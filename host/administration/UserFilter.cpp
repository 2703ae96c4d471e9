// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/UserFilter.h"

QString userFilter(const UserCriteria &criteria)
{
    QString clauses;
    if (!criteria.namePart.isEmpty()) {
        const QString like = QStringLiteral(" LIKE '%") + criteria.namePart + QStringLiteral("%'");
        clauses += QStringLiteral(" AND (sUser") + like + QStringLiteral(" OR sName") + like + u')';
    }
    if (criteria.activeOnly)
        clauses += QStringLiteral(" AND iStatus=0");
    return clauses;
}
