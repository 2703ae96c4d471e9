// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/totals/TotalsCheck.h"

#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

using TotalsCheck::Difference;

// What is kept, and what the rows of the documents in it say, each row of the result a sum that differs. The two sides are read by one
// statement, so that a desk that changes a document in between changes both or none. Rows are summed up by day before they are by month.
const KSql statement =
    "SELECT iMonth,iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,SUM(keptBed),SUM(keptBes),SUM(keptRows),SUM(dBed),SUM(dBes),SUM(iRows),"
    "SUM(dBed)-SUM(keptBed),SUM(dBes)-SUM(keptBes),SUM(iRows)-SUM(keptRows) FROM ("
    "SELECT iMonth,iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed keptBed,dBes keptBes,iRows keptRows,0 dBed,0 dBes,0 iRows FROM AccountTotals "
    "UNION ALL SELECT iMonth,iDay*levels.n,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,keptBed,keptBes,keptRows,dBed,dBes,iRows FROM ("
    "SELECT iMonth,iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed keptBed,dBes keptBes,iRows keptRows,0 dBed,0 dBes,0 iRows FROM AccountTotalChanges "
    "UNION ALL SELECT IFNULL(EXTRACT(YEAR_MONTH FROM h.date),0),IFNULL(DAYOFMONTH(h.date),0),iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,0,0,0,"
    "SUM(CAST(dBed AS DECIMAL(50,10))),SUM(CAST(dBes AS DECIMAL(50,10))),COUNT(*) FROM Documents h JOIN Docs d ON d.iDocNum=h.iNum AND "
    "d.iFiscalYear=h.iFiscalYear WHERE h.bSummed=1 AND h.iStatus=0 GROUP BY 1,2,3,4,5) byDay "
    "JOIN (SELECT 0 n UNION ALL SELECT 1) levels ON levels.n=0 OR byDay.iDay>0) both_sides GROUP BY 2,1,4,5,3 "
    "HAVING SUM(iRows)<>SUM(keptRows) OR SUM(dBed)<>SUM(keptBed) OR SUM(dBes)<>SUM(keptBes) ORDER BY 4,5,1,2";

Difference current(const CTblTemp &query)
{
    Difference found;
    found.month = query.GetLongFieldValue(0);
    found.day = query.GetLongFieldValue(1);
    found.general = query.GetLongFieldValue(2);
    found.subsidiary = query.GetLongFieldValue(3);
    found.detail = query.GetLongFieldValue(4);
    found.kept = {query.GetDoubleFieldValue(5), query.GetDoubleFieldValue(6)};
    found.keptRows = query.GetTextFieldValue(7).toLongLong();
    found.rows = {query.GetDoubleFieldValue(8), query.GetDoubleFieldValue(9)};
    found.rowCount = query.GetTextFieldValue(10).toLongLong();
    return found;
}

// As TotalsFolding::add takes it: what is to be added to the kept sum. Decimals go from the server to the server as they are.
KSql correction(const CTblTemp &query)
{
    QList<KSql> values;
    for (const int column : {0, 1, 2, 3, 4, 11, 12, 13})
        values.append(KSql::quoted(query.GetTextFieldValue(column)));
    return "(" + KSql::joined(values, ",") + ")";
}

QString amount(double value)
{
    return QString::number(value, 'f', 2);
}

}

QString TotalsCheck::Difference::line() const
{
    const QString when = month == 0 ? u"without a date"_s
                                    : u"%1-%2"_s.arg(month / 100, 4, 10, QChar(u'0')).arg(month % 100, 2, 10, QChar(u'0'))
            + (day == 0 ? QString() : u"-%1"_s.arg(day, 2, 10, QChar(u'0')));
    return u"account %1, %2: kept %3 debit, %4 credit of %5 rows; the documents say %6 debit, %7 credit of %8 rows"_s.arg(
        QString::number(detail > 0 ? detail : subsidiary), when, amount(kept.bed), amount(kept.bes), QString::number(keptRows), amount(rows.bed),
        amount(rows.bes), QString::number(rowCount));
}

QList<TotalsCheck::Difference> TotalsCheck::find(int database)
{
    QList<Difference> found;
    CTblTemp query(database);
    query.Open(true, false, true);
    for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult())
        found.append(current(query));
    return found;
}

// The difference stays the same whatever desks do meanwhile: each of them changes both sides alike. So it is added, and nothing is locked but
// the sums themselves.
QList<TotalsCheck::Difference> TotalsCheck::mend(int database)
{
    QList<Difference> found;
    KTransaction::runReplayable(
        [&] {
            found.clear();
            TotalsFolding::lock(database);
            QList<KSql> corrections;
            CTblTemp query(database);
            query.Open(false, false, true);
            for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult()) {
                found.append(current(query));
                corrections.append(correction(query));
            }
            TotalsFolding::add(corrections, database);
        },
        database);
    return found;
}
