// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/followups/CTblFollowUps.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
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
}

int CTblFollowUps::add(const Subject &subject, const QString &note, const QDateTime &promised, int database)
{
    const QString said = note.trimmed();
    if (said.isEmpty() && !promised.isValid())
        throw FieldRefused(u"لطفا یادداشت یا تاریخ وعده را وارد نمایید."_s, u"sNote"_s);
    int key = 0;
    KTransaction::runReplayable([&] {
        OfficeClosing::requireOpen(database);
        requireFollowUpRight(subject.form);
        if (const ReceiptOwner *owner = ReceiptOwners::of(subject.recordKind))
            owner->lock(subject.recordID, true);
        if (subject.require)
            subject.require();
        const QDateTime now = GetDBSetting()->GetDBServerDate();
        if (promised.isValid() && promised.date() < now.date())
            throw FieldRefused(u"تاریخ وعده گذشته است. لطفا اصلاح نمایید."_s, u"datePromised"_s);
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
        row.Update(true);
        key = static_cast<int>(row.GetLastInsertedID());
    },
                                database);
    return key;
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
