// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/AccountLedger.h"

#include "suite/db/CTblTemp.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

KSql rowsStatement(AccountLevel level, int code, const QDateTime &from, const QDateTime &to)
{
    KSql statement = KSql::formatted("SELECT d.iID,d.iDocNum,d.iFiscalYear,h.date,p.sName2,d.sDesc,d.dBed,d.dBes FROM Docs d "
                                     "JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear "
                                     "LEFT JOIN Persons p ON p.iID=d.iPersonID WHERE h.iStatus=0 AND d.%1=%2",
                                     KSql::name(AccountChart::docsColumn(level)), code);
    if (from.isValid())
        statement += " AND h.date>=" + DateToSQL(from);
    if (to.isValid())
        statement += " AND h.date<" + DateToSQL(to.addDays(1));
    return statement + " ORDER BY h.date,d.iFiscalYear,d.iDocNum,d.iID";
}

}

AccountBalance AccountLedger::balance(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database)
{
    switch (level) {
    case AccountLevel::Kol:
        return CTblDocs::GetBedBesHesabKol1(code, from, to, database);
    case AccountLevel::Moeen:
        return CTblDocs::GetBedBesHesabMoeen1(code, from, to, database);
    case AccountLevel::Tafsily:
        return CTblDocs::GetBedBes2(code, from, to, database);
    }
    Q_UNREACHABLE();
}

AccountLedger::Sheet AccountLedger::read(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database)
{
    Sheet sheet;
    if (from.isValid())
        sheet.before = balance(level, code, {}, from.addDays(-1), database);
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(rowsStatement(level, code, from, to));
    double running = sheet.before.net();
    for (; query.HasResultRow(); query.MoveNextResult()) {
        Row row{query.GetLongFieldValue(0), query.GetLongFieldValue(1), query.GetLongFieldValue(2),
                query.GetDateFieldValue(3), query.GetTextFieldValue(4), query.GetTextFieldValue(5),
                query.GetDoubleFieldValue(6), query.GetDoubleFieldValue(7)};
        running += row.bed - row.bes;
        row.balance = running;
        sheet.sum += {row.bed, row.bes};
        sheet.rows.append(row);
    }
    return sheet;
}
