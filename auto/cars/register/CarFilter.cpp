// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarFilter.h"

#include "auto/lists/ListClauses.h"

QString carFilter(const CarCriteria &criteria)
{
    using namespace ListClauses;
    QString clauses = criteria.withInactive ? QString::asprintf(" AND (ai.iStatus=%d OR ai.iStatus=%d)", 1, 0)
                                            : QString::asprintf(" AND ai.iStatus=%d", 0);
    // "Not archived" has no alias: the column is the cars' alone.
    clauses += archive(criteria.archiveState, criteria.currentUserID, "iArchiveUserID", "ai.iArchiveUserID");
    clauses += number(" AND ai.iAutomobilType=", criteria.automobilType);
    clauses += number(" AND ai.iColor=", criteria.color);
    clauses += number(" AND ai.iFuel=", criteria.fuel);
    clauses += from(" AND ai.dateIntroduction >= ", criteria.introductionFrom);
    clauses += upTo(" AND ai.dateIntroduction <= ", criteria.introductionTo);
    clauses += part("ai.sDocumentsDeficit", criteria.documentsDeficitPart);
    clauses += part("ai.sFractionalParts", criteria.partsDeficitPart);
    clauses += amount(" AND ai.dAmount >= ", criteria.amountFrom);
    clauses += amount(" AND ai.dAmount <= ", criteria.amountTo);
    clauses += number(" AND ai.iYear=", criteria.yearFrom);
    clauses += number(" AND ai.iYear<=", criteria.yearTo);
    clauses += number(" AND ai.iPersonBuyerID=", criteria.buyerID);
    clauses += number(" AND ai.iPersonID=", criteria.ownerID);
    clauses += part("ai.sChassisNum", criteria.chassisPart);
    return condition(clauses + QLatin1String(" GROUP BY ai.iID"));
}
