// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/DemandFilter.h"

#include "auto/lists/ListClauses.h"

QString demandFilter(const DemandCriteria &criteria)
{
    using namespace ListClauses;
    QString clauses = criteria.withInactive ? QString::asprintf(" AND (ad.iStatus=%d OR ad.iStatus=%d)", 1, 0)
                                            : QString::asprintf(" AND ad.iStatus=%d", 0);
    clauses += archive(criteria.archiveState, criteria.currentUserID, "ad.iArchiveUserID", "ad.iArchiveUserID");
    clauses += number(" AND ad.iAutomobilType=", criteria.automobilType);
    clauses += number(" AND ad.iColor=", criteria.color);
    clauses += from(" AND ad.dateReference >= ", criteria.referenceFrom);
    clauses += upTo(" AND ad.dateReference <= ", criteria.referenceTo);
    clauses += part("ad.sDescSpecial", criteria.specialDescriptionPart);
    clauses += number(" AND ad.iPersonID=", criteria.personID);
    clauses += number(" AND ad.iModelFrom >= ", criteria.yearFrom);
    clauses += number(" AND ad.iModelUpTo <= ", criteria.yearTo);
    clauses += amount(" AND ad.dAmountFrom >= ", criteria.amountFrom);
    clauses += amount(" AND ad.dAmountUpTo <= ", criteria.amountTo);
    return condition(clauses + QLatin1String(" GROUP BY ad.iID"));
}
