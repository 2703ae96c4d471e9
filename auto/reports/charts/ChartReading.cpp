// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/charts/ChartReading.h"

#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/sql/KSql.h"

using namespace Qt::StringLiterals;

namespace {

KSql within(const KSql &column, const QDateTime &from, const QDateTime &to)
{
    QList<KSql> parts{KSql::formatted("%1 IS NOT NULL", column)};
    if (from.isValid())
        parts.append(KSql::formatted("%1>=%2", column, DateToSQL(from)));
    if (to.isValid())
        parts.append(KSql::formatted("%1<%2+INTERVAL 1 DAY", column, DateToSQL(to)));
    return KSql::joined(parts, " AND ");
}

KSql ofBrand(const KSql &column, int brand)
{
    return brand == 0 ? KSql("TRUE") : KSql::formatted("%1=%2", column, brand);
}

}

QList<ChartFigures::Sale> ChartReading::sales(const QDateTime &from, const QDateTime &to, int brand)
{
    CTblTemp rows;
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT b.sName,a.dateBuy,DATEDIFF(a.dateBuy,COALESCE(a.dateIntroduction,a.dateCreate)),a.dSoldAmount,a.dPurchasePriceOfOwner,a.dAutomobilExpenses,a.dAmountPresence,a.dRemainingPresence"
                                      ",COALESCE(a.dateIntroduction,a.dateCreate)<=a.dateBuy FROM AutomobilInformations a LEFT JOIN CarBrands b ON b.iID=a.iAutomobilType WHERE a.bSold<>0 AND %1 AND %2 AND %3",
                                      within("a.dateBuy", from, to), ofBrand("a.iAutomobilType", brand), Placeholders::none(u"AutomobilInformations"_s, u"a.iID"_s)));
    QList<ChartFigures::Sale> sales;
    for (; rows.HasResultRow(); rows.MoveNextResult()) {
        const bool isStandingKnown = rows.GetLongFieldValue(8) != 0;
        sales.append({rows.GetTextFieldValue(0), rows.GetDateFieldValue(1).date(), isStandingKnown ? rows.GetLongFieldValue(2) : -1, {.sold = rows.GetDoubleFieldValue(3), .purchase = rows.GetDoubleFieldValue(4), .expenses = rows.GetDoubleFieldValue(5), .notaryCost = rows.GetDoubleFieldValue(6), .notaryRemaining = rows.GetDoubleFieldValue(7)}});
    }
    return sales;
}

QList<ChartFigures::Earning> ChartReading::earnings(const QDateTime &from, const QDateTime &to)
{
    CTblTemp rows;
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT COALESCE(NULLIF(u.sName,''),u.sUser),DATE(c.dateContract),c.dCommission FROM AutomobilContracts c LEFT JOIN Users u ON u.iID=c.iUserID"
                                      " WHERE c.iStatus=0 AND c.bReturn=0 AND %1 AND %2",
                                      within("c.dateContract", from, to), Placeholders::none(u"AutomobilContracts"_s, u"c.iID"_s)));
    QList<ChartFigures::Earning> earnings;
    for (; rows.HasResultRow(); rows.MoveNextResult())
        earnings.append({rows.GetTextFieldValue(0), rows.GetDateFieldValue(1).date(), rows.GetDoubleFieldValue(2)});
    return earnings;
}

QList<ChartFigures::Wanted> ChartReading::wanted(int brand)
{
    CTblTemp rows;
    rows.Open(true, false, true);
    rows.ExecuteQuery(KSql::formatted("SELECT b.sName,SUM(w.demands),SUM(w.cars) FROM (SELECT d.iAutomobilType AS brand,COUNT(*) AS demands,0 AS cars FROM AutomobilDemands d"
                                      " WHERE d.iArchiveUserID=0 AND d.iStatus=0 AND (d.dateMaxTimeNeed IS NULL OR d.dateMaxTimeNeed>=CURDATE()) AND %1 GROUP BY d.iAutomobilType"
                                      " UNION ALL SELECT a.iAutomobilType,0,COUNT(*) FROM AutomobilInformations a WHERE a.bSold=0 AND a.iArchiveUserID=0 AND a.iStatus=0 AND %2 GROUP BY a.iAutomobilType) w"
                                      " LEFT JOIN CarBrands b ON b.iID=w.brand WHERE %3 GROUP BY w.brand,b.sName",
                                      Placeholders::none(u"AutomobilDemands"_s, u"d.iID"_s), Placeholders::none(u"AutomobilInformations"_s, u"a.iID"_s), ofBrand("w.brand", brand)));
    QList<ChartFigures::Wanted> wanted;
    for (; rows.HasResultRow(); rows.MoveNextResult())
        wanted.append({rows.GetTextFieldValue(0), rows.GetLongFieldValue(1), rows.GetLongFieldValue(2)});
    return wanted;
}
