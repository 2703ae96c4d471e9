// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/totals/AccountTotals.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/books/totals/TotalsRange.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

namespace {

// Reading so many takes some milliseconds; taking them in, a few hundredths of a second, once.
constexpr int rowsBehindToFold = 1000;

KSql either(const QList<KSql> &conditions)
{
    return conditions.isEmpty() ? KSql("FALSE") : "(" + KSql::joined(conditions, " OR ") + ")";
}

// Each day by itself: an index that begins with it then leads to the days of one month alone.
KSql daysOf(int first, int last)
{
    QList<int> days;
    for (int day = first; day <= last; ++day)
        days.append(day);
    return "iDay IN (" + KSql::list(days) + ")";
}

KSql inMonths(const TotalsRange &range)
{
    KSql months = KSql::formatted("iMonth>=%1", range.firstMonth == 0 ? 1 : range.firstMonth);
    if (range.lastMonth > 0)
        months += KSql::formatted(" AND iMonth<=%1", range.lastMonth);
    return months;
}

// Of AccountTotals. inWhole: which rows stand for the months that lie in the range whole.
KSql inSums(const TotalsRange &range, const KSql &inWhole)
{
    if (range.isEverything)
        return inWhole;
    QList<KSql> conditions;
    if (range.hasMonths)
        conditions.append(inWhole + " AND " + inMonths(range));
    for (const TotalsRange::Days &days : range.days)
        conditions.append(KSql::formatted("iMonth=%1 AND ", days.month) + daysOf(days.first, days.last));
    return either(conditions);
}

int numberOf(const QDate &day)
{
    return (day.year() * 100 + day.month()) * 100 + day.day();
}

// Of rows that have a day each.
KSql onDays(const QDate &from, const QDate &to)
{
    KSql condition = "TRUE";
    if (from.isValid())
        condition += KSql::formatted(" AND iMonth*100+iDay>=%1", numberOf(from));
    if (to.isValid())
        condition += KSql::formatted(" AND iMonth*100+iDay<=%1 AND iMonth>0", numberOf(to));
    return condition;
}

// The rows of documents that are in no sum.
KSql unsummed(const KSql &columns, const QDateTime &from, const QDateTime &to)
{
    KSql statement = "SELECT " + columns
        + " FROM Documents h STRAIGHT_JOIN Docs d FORCE INDEX(document) ON d.iDocNum=h.iNum AND d.iFiscalYear=h.iFiscalYear WHERE h.bSummed=0 AND h.iStatus=0";
    if (from.isValid())
        statement += " AND h.date>=" + DateToSQL(from);
    if (to.isValid())
        statement += " AND h.date<" + DateToSQL(to.addDays(1));
    return statement;
}

}

KSql AccountTotals::sums(AccountLevel level, const QDateTime &from, const QDateTime &to, const KSql &condition)
{
    const KSql code = KSql::name(AccountChart::docsColumn(level));
    const KSql accounts = " AND " + code + ">0" + (condition.isEmpty() ? KSql() : " AND " + condition);
    const KSql kept = "SELECT " + code + " code,dBed,dBes,iRows,0 behind FROM AccountTotals WHERE " + inSums(TotalsRange::of(from.date(), to.date()), "iDay=0") + accounts;
    const KSql changes = "SELECT " + code + ",dBed,dBes,iRows,1 FROM AccountTotalChanges WHERE " + onDays(from.date(), to.date()) + accounts;
    return "SELECT code,SUM(dBed) dBed,SUM(dBes) dBes,SUM(iRows) iRows,SUM(behind) behind FROM (" + kept + " UNION ALL " + changes + " UNION ALL "
        + unsummed(code + ",dBed,dBes,1,1", from, to) + accounts + ") kept_and_new GROUP BY code";
}

QHash<int, AccountBalance> AccountTotals::read(AccountLevel level, const QDateTime &from, const QDateTime &to, const KSql &condition, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(sums(level, from, to, condition));
    QHash<int, AccountBalance> balances;
    qint64 behind = 0;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        behind += static_cast<qint64>(query.GetDoubleFieldValue(4));
        if (query.GetDoubleFieldValue(3) > 0)
            balances.insert(query.GetLongFieldValue(0), {query.GetDoubleFieldValue(1), query.GetDoubleFieldValue(2)});
    }
    if (behind > rowsBehindToFold)
        TotalsFolding::foldBeside(database);
    return balances;
}

KSql AccountTotals::days(const QDate &from, const QDate &to)
{
    const KSql sums = "SELECT iMonth*100+iDay iDate,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,iRows FROM AccountTotals WHERE "
        + inSums(TotalsRange::of(from, to), daysOf(1, 31));
    const KSql changes = " UNION ALL SELECT iMonth*100+iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,iRows FROM AccountTotalChanges WHERE ";
    return sums + changes + onDays(from, to) + " UNION ALL "
        + unsummed("EXTRACT(YEAR_MONTH FROM h.date)*100+DAYOFMONTH(h.date),iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,1",
                   from.startOfDay(Qt::UTC), to.startOfDay(Qt::UTC));
}

void AccountTotals::release(int num, int fiscalYear, int database)
{
    // By the unique key: by another one it would lock neighbours as well. Read and written by one unit: between the two a desk may take the document in again.
    KTransaction transaction(database);
    KConnection &connection = KConnection::forThread(database);
    // Of one that is in no sum it must not read the rows: that would lock them, and whoever deletes them next would meet others who did.
    connection.follow(KSql::formatted("INSERT INTO AccountTotalChanges(iMonth,iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,iRows) "
                                      "SELECT IFNULL(EXTRACT(YEAR_MONTH FROM h.date),0),IFNULL(DAYOFMONTH(h.date),0),iHesabKolCode,iHesabMoeenCode,"
                                      "iHesabTafsilyCode,-SUM(CAST(dBed AS DECIMAL(50,10))),-SUM(CAST(dBes AS DECIMAL(50,10))),-COUNT(*) FROM (SELECT 1 FROM DUAL WHERE %3 LIMIT 1) AS released STRAIGHT_JOIN Documents h "
                                      "JOIN Docs d ON d.iDocNum=h.iNum AND d.iFiscalYear=h.iFiscalYear WHERE h.iNum=%1 AND h.iFiscalYear=%2 AND h.iStatus=0 "
                                      "GROUP BY 1,2,3,4,5",
                                      num, fiscalYear, KConnection::whereChanged()));
    connection.run(KSql::formatted("UPDATE Documents FORCE INDEX(yearNum) SET bSummed=0 WHERE iNum=%1 AND iFiscalYear=%2 AND bSummed=1", num, fiscalYear));
    transaction.commit();
}
