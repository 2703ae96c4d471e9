// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/TariffFilter.h"

#include "auto/lists/ListClauses.h"

QString tariffFilter(const TariffCriteria &criteria)
{
    QString clauses;
    if (!criteria.withInactive)
        clauses += QString::asprintf(" AND iStatus=%d", 0);
    clauses += ListClauses::part("sTitle", criteria.namePart);
    return ListClauses::condition(clauses);
}
