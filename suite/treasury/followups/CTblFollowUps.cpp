// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/followups/CTblFollowUps.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/records/ReceiptOwners.h"

using namespace Qt::StringLiterals;

namespace {

// As the rights stand now: they may have been taken away while the window was open.
void requireFollowUpRight(const QString &form)
{
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(form, KSecurity::Write))
        throw KAccountingError(KSecurity::refusalText(form, KSecurity::Write));
}

void requireWords(const QString &said, const QDateTime &next, bool isDue)
{
    if (said.isEmpty() && isDue && !next.isValid())
        throw FieldRefused(u"لطفا یادداشت یا تاریخ وعده را وارد نمایید."_s, u"sNote"_s);
    if (said.isEmpty() && !isDue)
        throw FieldRefused(u"لطفا متن یادداشت را وارد نمایید."_s, u"sNote"_s);
}

void requireNotOver(const QDateTime &next, const QDateTime &now, bool isDue)
{
    if (next.isValid() && next.date() < now.date())
        throw FieldRefused(isDue ? u"تاریخ وعده گذشته است. لطفا اصلاح نمایید."_s : u"تاریخ پیگیری بعدی گذشته است. لطفا اصلاح نمایید."_s, u"datePromised"_s);
}

void requireOwnNote(const CTblFollowUps &row)
{
    if (row.m_iKind == CTblFollowUps::due)
        throw KAccountingError(u"پیگیری‌های سررسید تغییر نمی‌کنند."_s);
    if (row.m_iUserID != GetDBSetting()->GetUserID())
        throw KAccountingError(u"تنها نویسنده می‌تواند این یادداشت را تغییر دهد یا حذف کند."_s);
}

void requireThere(const QString &table, int key)
{
    CTblTemp row;
    row.Open(true, false, true);
    row.ExecuteQuery(KSql::formatted("SELECT 1 FROM %1 WHERE iID=%2 LOCK IN SHARE MODE", KSql::name(table), key));
    if (!row.HasResultRow())
        throw KAccountingError(u"%1 را کاربر دیگری حذف کرده است. یادداشت ثبت نشد."_s.arg(RecordSubjects::nameOf(table, key)));
}

CTblFollowUps::Shown shownOf(const CTblFollowUps &row)
{
    return {row.m_iID, static_cast<CTblFollowUps::Kind>(row.m_iKind), row.m_sNote, row.m_datePromised};
}

// The row is then locked and as it was shown.
void lockNote(CTblFollowUps &row, const CTblFollowUps::Shown &before)
{
    if (!row.lockRecord(before.id))
        throw RowChanged(RowChanged::Kind::Gone, row, before.id, u"این یادداشت"_s);
    requireOwnNote(row);
    const CTblFollowUps::Shown now = shownOf(row);
    if (now.kind != before.kind || now.said != before.said || now.next != before.next)
        throw KAccountingError(u"این یادداشت را %1 تغییر داده است. لطفا آن را دوباره باز نمایید."_s.arg(RowChanged::lastChange(row.GetTableName(), before.id, row.database())));
}

}

CTblFollowUps::CTblFollowUps(int database)
    : KMySQL(database)
{
}

CTblFollowUps::~CTblFollowUps() = default;

QString CTblFollowUps::GetTableName() const
{
    return u"FollowUps"_s;
}

void CTblFollowUps::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iPaymentID", m_iPaymentID, u"");
    RFX_Date(u"date", m_date, u"تاریخ");
    RFX_Text(u"sNote", m_sNote, u"یادداشت");
    RFX_Date(u"datePromised", m_datePromised, u"وعده پرداخت");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iKind", m_iKind, u"");
}

CTblFollowUps::Subject CTblFollowUps::subjectOf(const QString &table, int recordKind, const QString &form, int recordID)
{
    return {.recordKind = recordKind, .recordID = recordID, .form = form, .require = [table, recordID] { requireThere(table, recordID); }, .kind = note};
}

int CTblFollowUps::add(const Subject &subject, const QString &note, const QDateTime &promised, int database)
{
    const QString said = note.trimmed();
    requireWords(said, promised, subject.kind == due);
    int key = 0;
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen(database);
        requireFollowUpRight(subject.form);
        if (const ReceiptOwner *owner = ReceiptOwners::of(subject.recordKind))
            owner->lock(subject.recordID, true);
        if (subject.require)
            subject.require();
        const QDateTime now = GetDBSetting()->GetDBServerDate();
        requireNotOver(promised, now, subject.kind == due);
        CTblFollowUps row(database);
        row.Open(false, false, true);
        row.AddNew();
        row.m_iTable = subject.recordKind;
        row.m_iRecordID = subject.recordID;
        row.m_iPaymentID = subject.paymentID;
        row.m_date = now;
        row.m_sNote = said;
        row.m_datePromised = promised;
        row.m_iUserID = GetDBSetting()->GetUserID();
        row.m_iKind = subject.kind;
        row.Update(true);
        key = static_cast<int>(row.GetLastInsertedID());
    },
                                database);
    return key;
}

QString CTblFollowUps::kindName(int kind)
{
    return kind == call ? u"تماس"_s : kind == note ? u"یادداشت"_s
                                                   : u"پیگیری"_s;
}

CTblFollowUps::Shown CTblFollowUps::shown(int id, int database)
{
    CTblFollowUps row(database);
    if (!row.IsRecordExist(u"iID"_s, id))
        throw RowChanged(RowChanged::Kind::Gone, row, id, u"این یادداشت"_s);
    requireOwnNote(row);
    return shownOf(row);
}

void CTblFollowUps::change(const Shown &before, Kind kind, const QString &said, const QDateTime &next, int database)
{
    const QString text = said.trimmed();
    requireWords(text, next, false);
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen(database);
        CTblFollowUps row(database);
        lockNote(row, before);
        // A date that was planned may be over by now.
        if (next != before.next)
            requireNotOver(next, GetDBSetting()->GetDBServerDate(), false);
        row.Edit();
        row.m_iKind = kind;
        row.m_sNote = text;
        row.m_datePromised = next;
        row.Update(true);
    },
                                database);
}

void CTblFollowUps::take(const Shown &before, int database)
{
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen(database);
        CTblFollowUps row(database);
        lockNote(row, before);
        row.Delete();
    },
                                database);
}

KSql CTblFollowUps::planned(int userID, const KSql &end)
{
    return "f.datePromised<" + end + KSql::formatted(" AND f.iKind>%1 AND f.iUserID=%2 AND NOT EXISTS(SELECT 1 FROM FollowUps n WHERE n.iTable=f.iTable AND n.iRecordID=f.iRecordID AND n.iID>f.iID)", int(due), userID);
}

QList<CTblFollowUps::Entry> CTblFollowUps::history(int recordKind, int recordID, int database)
{
    QList<Entry> entries;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT f.iID,f.iPaymentID,f.date,f.sNote,f.datePromised,COALESCE(NULLIF(u.sName,''),u.sUser) FROM FollowUps f "
                                       "LEFT JOIN Users u ON u.iID=f.iUserID WHERE f.iTable=%1 AND f.iRecordID=%2 ORDER BY f.iID DESC",
                                       recordKind, recordID));
    for (; query.HasResultRow(); query.MoveNextResult())
        entries.append({query.GetLongFieldValue(0), query.GetLongFieldValue(1), query.GetDateFieldValue(2), query.GetTextFieldValue(3),
                        query.GetDateFieldValue(4), query.GetTextFieldValue(5)});
    return entries;
}

void CTblFollowUps::deleteOf(int recordKind, int recordID, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM FollowUps WHERE iTable=%d AND iRecordID=%d", recordKind, recordID);
}
