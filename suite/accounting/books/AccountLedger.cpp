// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/AccountLedger.h"

#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/office/ReceiptMethods.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

using AccountLedger::Row;
using AccountLedger::Scope;

KSql inScope(const Scope &scope)
{
    return scope.isPerson() ? KSql::formatted("d.iPersonID=%1", scope.personID)
                            : KSql::formatted("d.%1=%2", KSql::name(AccountChart::docsColumn(scope.level)), scope.code);
}

KSql inRange(const QDateTime &from, const QDateTime &to)
{
    KSql condition;
    if (from.isValid())
        condition += " AND h.date>=" + DateToSQL(from);
    if (to.isValid())
        condition += " AND h.date<" + DateToSQL(to.addDays(1));
    return condition;
}

KSql rowsStatement(const Scope &scope, const QDateTime &from, const QDateTime &to)
{
    return "SELECT d.iID,d.iDocNum,d.iFiscalYear,h.date,p.sName2,d.sDesc,d.dBed,d.dBes,h.sDesc FROM Docs d "
           "JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear "
           "LEFT JOIN Persons p ON p.iID=d.iPersonID WHERE h.iStatus=0 AND "
        + inScope(scope) + inRange(from, to) + " ORDER BY h.date,d.iFiscalYear,d.iDocNum,d.iID";
}

// The receipts behind the documents of the sheet. Read by themselves: a document that two of them name would double its rows.
KSql receiptsStatement(const Scope &scope, const QDateTime &from, const QDateTime &to)
{
    return "SELECT r.iDocNum,r.iFiscalYear,r.iID,r.sFor,r.iMethod,p.sName2 FROM Receipts r "
           "JOIN Documents h ON h.iNum=r.iDocNum AND h.iFiscalYear=r.iFiscalYear "
           "LEFT JOIN Persons p ON p.iID=r.iPersonID WHERE h.iStatus=0"
        + inRange(from, to)
        + KSql::formatted(" AND EXISTS(SELECT 1 FROM Docs d WHERE d.iDocNum=r.iDocNum AND d.iFiscalYear=r.iFiscalYear AND %1)", inScope(scope))
        + " ORDER BY r.iID DESC";
}

struct LedgerReceipt
{
    int id = 0;
    QString purpose;
    int method = 0;
    QString person;
};

using LedgerReceipts = QHash<std::pair<int, int>, LedgerReceipt>; // by number and fiscal year of the document

LedgerReceipts readReceipts(const Scope &scope, const QDateTime &from, const QDateTime &to, int database)
{
    LedgerReceipts receipts;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(receiptsStatement(scope, from, to));
    for (; query.HasResultRow(); query.MoveNextResult())
        receipts.insert({query.GetLongFieldValue(0), query.GetLongFieldValue(1)},
                        {query.GetLongFieldValue(2), query.GetTextFieldValue(3), query.GetLongFieldValue(4), query.GetTextFieldValue(5)});
    return receipts;
}

void addReceipt(Row &row, const LedgerReceipts &receipts)
{
    const LedgerReceipt receipt = receipts.value({row.docNum, row.fiscalYear});
    row.receiptID = receipt.id;
    row.receiptFor = receipt.purpose;
    row.method = receipt.method;
    if (row.person.isEmpty())
        row.person = receipt.person;
}

AccountBalance personBalance(int personID, const QDateTime &to, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT SUM(d.dBed),SUM(d.dBes) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND "
                                       "h.iFiscalYear=d.iFiscalYear WHERE h.iStatus=0 AND d.iPersonID=%1",
                                       personID)
                       + inRange({}, to));
    return {query.GetDoubleFieldValue(0), query.GetDoubleFieldValue(1)};
}

}

QString AccountLedger::Row::purpose() const
{
    if (receiptID == 0)
        return documentFor;
    const QString what = receiptFor.isEmpty() ? u"علی‌الحساب"_s : receiptFor;
    const QString how = ReceiptMethods::name(method);
    return how.isEmpty() ? what : what + u" ("_s + how + u')';
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

AccountLedger::Sheet AccountLedger::read(const Scope &scope, const QDateTime &from, const QDateTime &to, int database)
{
    Sheet sheet;
    if (from.isValid()) {
        const QDateTime eve = from.addDays(-1);
        sheet.before = scope.isPerson() ? personBalance(scope.personID, eve, database) : balance(scope.level, scope.code, {}, eve, database);
    }
    const LedgerReceipts receipts = readReceipts(scope, from, to, database);
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(rowsStatement(scope, from, to));
    double running = sheet.before.net();
    for (; query.HasResultRow(); query.MoveNextResult()) {
        Row row{query.GetLongFieldValue(0), query.GetLongFieldValue(1), query.GetLongFieldValue(2),
                query.GetDateFieldValue(3), query.GetTextFieldValue(4), query.GetTextFieldValue(5),
                query.GetDoubleFieldValue(6), query.GetDoubleFieldValue(7)};
        running += row.bed - row.bes;
        row.balance = running;
        row.documentFor = query.GetTextFieldValue(8);
        addReceipt(row, receipts);
        sheet.sum += {row.bed, row.bes};
        sheet.rows.append(row);
    }
    return sheet;
}

AccountLedger::Sheet AccountLedger::read(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database)
{
    return read(Scope::account(level, code), from, to, database);
}

AccountLedger::Person AccountLedger::person(int personID, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT sName2,iCode,sNationalCode FROM Persons WHERE iID=%1", personID));
    return {query.GetTextFieldValue(0), query.GetLongFieldValue(1), query.GetTextFieldValue(2)};
}
