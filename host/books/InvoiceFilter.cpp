// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/InvoiceFilter.h"

#include "suite/utility/values/ShamsiDate.h"

QString invoiceFilter(const InvoiceCriteria &criteria)
{
    QString clauses;
    if (criteria.validOnly)
        clauses += QStringLiteral(" AND iStatus=0");
    if (criteria.personID > 0)
        clauses += QStringLiteral(" AND iPersonID=%1").arg(criteria.personID);
    if (criteria.type > 0)
        clauses += QStringLiteral(" AND iType=%1").arg(criteria.type);
    if (criteria.from.isValid())
        clauses += QStringLiteral(" AND date>=") + DateToSQL(criteria.from);
    if (criteria.to.isValid())
        clauses += QStringLiteral(" AND date<") + DateToSQL(criteria.to.addDays(1));
    return clauses;
}
