// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractFilter.h"

#include "auto/lists/ListClauses.h"

QString contractFilter(const ContractCriteria &criteria)
{
    using namespace ListClauses;
    QString clauses;
    if (criteria.activeOnly)
        clauses += QString::asprintf(" AND iStatus = %d", 0);
    clauses += number(" AND iPersonFirstID=", criteria.firstPersonID);
    if (criteria.returnState > 0)
        clauses += QString::asprintf(" AND bReturn=%d", criteria.returnState - 1);
    clauses += archive(criteria.archiveState, criteria.currentUserID, "iArchiveUserID", "iArchiveUserID");
    clauses += number(" AND iPersonSecondID=", criteria.secondPersonID);
    if (criteria.contractType > 0)
        clauses += QString::asprintf(" AND iContractType = %d", criteria.contractType - 1);
    clauses += from(" AND dateContract>=", criteria.contractFrom);
    clauses += upTo(" AND dateContract<=", criteria.contractTo);
    clauses += part("sDesc", criteria.descriptionPart);
    clauses += part("sExplain", criteria.explanationPart);
    clauses += from(" AND dateExpiration>=", criteria.expirationFrom);
    clauses += upTo(" AND dateExpiration <= ", criteria.expirationTo);
    return condition(clauses);
}
