// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CTblDocuments.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/changes/ChangedLines.h"
#include "suite/accounting/books/totals/AccountTotals.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/Money.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcDocuments, "tz.documents")

// In the log of changes.
const QString notedRows = u"rows"_s;

KSql documentFilter(int num, int fiscalYear)
{
    return KSql::formatted("iNum=%1 AND iFiscalYear=%2", num, fiscalYear);
}

KSql balanceStatement(int num, int fiscalYear)
{
    return KSql::formatted("SELECT SUM(d.dBed), SUM(d.dBes), SUM(m.iID IS NULL) FROM Docs d FORCE INDEX(document) LEFT JOIN HesabMoeen m ON m.iCode=d.iHesabMoeenCode "
                           "WHERE d.iDocNum=%1 AND d.iFiscalYear=%2",
                           num, fiscalYear);
}

// Of a document that was released from the sums of its accounts.
QList<DocumentRow> takenRows(int num, int fiscalYear, int database)
{
    QList<DocumentRow> rows;
    CTblTemp taken(database);
    taken.Open(true, false, true);
    taken.FormatAndExecuteQuery("DELETE FROM Docs WHERE iDocNum=%d AND iFiscalYear=%d"
                                " RETURNING IF(iHesabTafsilyCode>0,iHesabTafsilyCode,iHesabMoeenCode),iPersonID,dBed,dBes,sDesc",
                                num, fiscalYear);
    for (; taken.HasResultRow(); taken.MoveNextResult())
        rows.append({taken.GetLongFieldValue(0), taken.GetLongFieldValue(1), taken.GetDoubleFieldValue(2), taken.GetDoubleFieldValue(3), taken.GetTextFieldValue(4)});
    return rows;
}

}

CTblDocuments::CTblDocuments(int database)
    : KMySQL(database)
{
}

CTblDocuments::~CTblDocuments() = default;

QString CTblDocuments::GetTableName() const
{
    return u"Documents"_s;
}

void CTblDocuments::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iNum", m_iNum, u"شماره سند");
    RFX_Long(u"iFiscalYear", m_iFiscalYear, u"سال مالی");
    RFX_Long(u"iKind", m_iKind, u"نوع سند");
    RFX_Date(u"date", m_date, u"تاریخ سند");
    RFX_Text(u"sDesc", m_sDesc, u"شرح سند");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iStatus", m_iStatus, u"");
}

int CTblDocuments::AddDoc(int kind, const QDateTime &date, const QString &desc, int fiscalYear, int database)
{
    return addHeader(kind, date, desc, fiscalYear, database).num;
}

CTblDocuments::Header CTblDocuments::addHeader(int kind, const QDateTime &date, const QString &desc, int fiscalYear, int database)
{
    if (fiscalYear < 1 || CDBSetting::IsClosed(database)) {
        qCWarning(lcDocuments) << "no document was added: the database is closed or there is no fiscal year" << fiscalYear;
        return {};
    }
    KTransaction transaction(database);
    CTblDocuments set(database);
    set.AddNew();
    set.m_iNum = drawNumber(fiscalYear, database);
    set.m_iFiscalYear = fiscalYear;
    set.m_iKind = kind;
    set.m_date = date;
    set.m_sDesc = desc;
    set.m_iUserID = GetDBSetting()->GetUserID();
    set.Update(true);
    transaction.commit();
    return {set.m_iNum, set.m_iID};
}

// By one row: its holder is alone also in a fiscal year that has no document yet, where there is no last document to lock.
void CTblDocuments::lockBooks(int database)
{
    if (!KConnection::forThread(database).inTransaction())
        throw CMySQLException(CMySQLException::Category::Other, 0, u"Documents: the books are locked outside of a transaction"_s);
    CTblTemp temp(database);
    temp.Open(false, false, true);
    temp.ExecuteQuery("SELECT iID FROM Properties WHERE sSection='Documents' AND sKey='Numbering' FOR UPDATE", true, true);
    if (!temp.HasResultRow())
        throw CMySQLException(CMySQLException::Category::Other, 0, u"Properties: the row that guards document numbers is missing"_s);
}

int CTblDocuments::drawNumber(int fiscalYear, int database)
{
    lockBooks(database);
    CTblTemp temp(database);
    temp.Open(false, false, true);
    // Locking reads see what others have committed since this transaction began; a plain one would not.
    temp.FormatAndExecuteQuery("SELECT MAX(iNum) FROM Documents WHERE iFiscalYear=%d FOR UPDATE", fiscalYear);
    return temp.GetLongFieldValue(0) + 1;
}

bool CTblDocuments::EditDoc(int num, int fiscalYear, const QDateTime &date, const QString &desc, int database)
{
    return editedKey(num, fiscalYear, date, desc, database) != 0;
}

// Of the header that was given them; 0: there is none, or the database is closed.
qint32 CTblDocuments::editedKey(int num, int fiscalYear, const QDateTime &date, const QString &desc, int database)
{
    if (num < 1 || CDBSetting::IsClosed(database))
        return 0;
    KTransaction transaction(database);
    CTblDocuments set(database);
    set.m_filter = documentFilter(num, fiscalYear);
    set.Open(true, true, true);
    if (!set.IsEOF()) {
        AccountTotals::release(num, fiscalYear, database);
        set.Edit();
        set.m_date = date;
        set.m_sDesc = desc;
        set.Update(true);
    }
    transaction.commit();
    return set.m_iID;
}

std::optional<CTblDocuments::Emptied> CTblDocuments::Rewrite(int num, int fiscalYear, const QDateTime &date, const QString &desc, int database)
{
    KTransaction transaction(database);
    std::optional<Emptied> emptied;
    if (const qint32 key = editedKey(num, fiscalYear, date, desc, database))
        emptied = {key, takenRows(num, fiscalYear, database)};
    transaction.commit();
    return emptied;
}

void CTblDocuments::expectRewrite(int num, int fiscalYear, int database)
{
    OfficeSettings::expect({}, database);
    CTblDocuments set(database);
    set.m_filter = documentFilter(num, fiscalYear);
    set.expectOpen();
}

void CTblDocuments::EmptyDoc(int num, int fiscalYear, int database)
{
    if (num < 1)
        return;
    KTransaction transaction(database);
    AccountTotals::release(num, fiscalYear, database);
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.FormatAndExecuteQuery("DELETE FROM Docs WHERE iDocNum=%d AND iFiscalYear=%d", num, fiscalYear);
    transaction.commit();
}

QList<DocumentRow> CTblDocuments::TakeRows(int num, int fiscalYear, int database)
{
    if (num < 1)
        return {};
    KTransaction transaction(database);
    AccountTotals::release(num, fiscalYear, database);
    const QList<DocumentRow> rows = takenRows(num, fiscalYear, database);
    transaction.commit();
    return rows;
}

void CTblDocuments::DeleteDoc(int num, int fiscalYear, int kind, int userID, const QString &reason, int database)
{
    if (num < 1)
        return;
    KTransaction transaction(database);
    CTblDocuments set(database);
    set.m_filter = documentFilter(num, fiscalYear);
    set.Open(false, true, true);
    const bool meant = !set.IsEOF() && (kind == 0 || kind == set.m_iKind) && (userID == 0 || userID == set.m_iUserID);
    if (meant) {
        if (const auto rows = changedRows(TakeRows(num, fiscalYear, database), {}))
            set.noteFurther(*rows);
        set.Delete();
        if (!reason.isEmpty())
            qCInfo(lcDocuments).noquote() << "document" << num << "of" << fiscalYear << "deleted:" << reason;
    }
    transaction.commit();
}

void CTblDocuments::VoidDoc(int num, int fiscalYear, int database)
{
    if (num < 1)
        return;
    KTransaction transaction(database);
    const QList<DocumentRow> rows = TakeRows(num, fiscalYear, database);
    CTblDocuments set(database);
    set.m_filter = documentFilter(num, fiscalYear);
    set.Open(false, true, true);
    if (!set.IsEOF()) {
        if (const auto changed = changedRows(rows, {}))
            set.noteFurther(*changed);
        set.Edit();
        set.m_iStatus = 1;
        set.Update(true);
    }
    transaction.commit();
}

std::optional<KChangedValue> CTblDocuments::changedRows(const QList<DocumentRow> &before, const QList<DocumentRow> &after)
{
    return ChangedLines::between(notedRows, documentLines(before), documentLines(after));
}

bool CTblDocuments::hasRows(int num, int fiscalYear, int database)
{
    CTblTemp rows(database);
    rows.FormatAndExecuteQuery("SELECT 1 FROM Docs WHERE iDocNum=%d AND iFiscalYear=%d LIMIT 1", num, fiscalYear);
    return rows.HasResultRow();
}

void CTblDocuments::expectBalanced(int num, int fiscalYear, int database)
{
    if (num > 0)
        KReadAhead::expectBehind(balanceStatement(num, fiscalYear), database);
}

void CTblDocuments::RequireBalanced(int num, int fiscalYear, int database)
{
    if (num < 1)
        return;
    CTblTemp temp(database);
    temp.Open(false, false, true);
    temp.ExecuteQuery(balanceStatement(num, fiscalYear));
    const double debit = temp.GetDoubleFieldValue(0);
    const double credit = temp.GetDoubleFieldValue(1);
    if (temp.GetLongFieldValue(2) > 0)
        throw KAccountingError(u"سند شماره %1 ردیفی با حساب تعریف نشده دارد و ثبت نشد."_s.arg(num));
    if (!IsEquals(debit, credit))
        throw KAccountingError(u"سند شماره %1 تراز نیست و ثبت نشد: بدهکار %2، بستانکار %3."_s
                                   .arg(QString::number(num), DToMoney(debit), DToMoney(credit)));
}
