// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/DocumentFilter.h"

#include "suite/utility/values/ShamsiDate.h"

QString documentFilter(const DocumentCriteria &criteria)
{
    QString clauses;
    if (criteria.fiscalYear > 0)
        clauses += QStringLiteral(" AND iFiscalYear=%1").arg(criteria.fiscalYear);
    if (criteria.number > 0)
        clauses += QStringLiteral(" AND iNum=%1").arg(criteria.number);
    if (criteria.from.isValid())
        clauses += QStringLiteral(" AND date>=%1").arg(DateToSQL(criteria.from));
    if (criteria.to.isValid())
        clauses += QStringLiteral(" AND date<%1").arg(DateToSQL(criteria.to.addDays(1)));
    if (!criteria.descriptionPart.isEmpty())
        clauses += QStringLiteral(" AND sDesc LIKE '%") + criteria.descriptionPart + QStringLiteral("%'");
    return clauses;
}
