// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/PayableAmount.h"

#include "suite/db/records/CTblTemp.h"
#include "auto/reports/season/SeasonBounds.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/office/Placeholders.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int twiceTheCommission = 2; // column of the contracts' sums

double serviceLines(CTblTemp &statement, const KSql &inSeason, int invoiceType)
{
    statement.ExecuteQuery(KSql::formatted("SELECT SUM(fs.dAmount) FROM FactorStuffs fs, Factors f WHERE f.iID=fs.iFactorNum AND %1 AND "
                                           "f.iStatus=0 AND f.iType=%2 AND fs.iServiceID>0 AND f.iPersonID>0",
                                           inSeason, invoiceType));
    return statement.GetDoubleFieldValue(0);
}

}

PayableAmount PayableAmount::ofSeason(int season, int shamsiYear)
{
    const Season::Bounds bounds = Season::bounds(season, shamsiYear);
    const KSql invoicesInSeason = Season::condition("f.date", bounds);
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.ExecuteQuery(KSql::formatted("SELECT SUM(dPayFirst), SUM(dPaySecond), SUM(dCommission*2), SUM(dtax), SUM(dtax2), "
                                           "SUM(dImposition), SUM(dImposition2) FROM AutomobilContracts WHERE %1 AND iStatus=0 "
                                           "AND %2 ORDER BY dateContract",
                                           Season::condition("dateContract", bounds),
                                           Placeholders::none(u"AutomobilContracts"_s)));
    PayableAmount amount;
    amount.sales = statement.GetDoubleFieldValue(twiceTheCommission);
    // The lines of purchase invoices count as sales, those of sales invoices as purchases.
    amount.sales += serviceLines(statement, invoicesInSeason, CTblFactors::purchase);
    amount.purchases = serviceLines(statement, invoicesInSeason, CTblFactors::sale);
    return amount;
}
