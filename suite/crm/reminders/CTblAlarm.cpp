// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CTblAlarm.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/reminders/AlarmTime.h"

using namespace Qt::StringLiterals;

namespace {

KSql ofUser(int userID)
{
    return KSql::formatted(" AND iUserID=%1", userID);
}

// By the server's clock, which all machines of an office share. A demand that nobody has saved yet reminds nobody.
KSql dueCondition(int userID)
{
    return KSql::formatted("iStatus=%1 AND date<=NOW()", CTblAlarm::statusOpen) + ofUser(userID)
        + KSql::formatted(" AND (iTable<>%1 OR %2)", int(RecordKind::AutomobilDemandReminder),
                          Placeholders::none(u"AutomobilDemands"_s, u"Alarms.iRecordID"_s));
}

}

CTblAlarm::CTblAlarm(int database)
    : KMySQL(database)
{
}

CTblAlarm::~CTblAlarm() = default;

QString CTblAlarm::GetTableName() const
{
    return u"Alarms"_s;
}

void CTblAlarm::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iRecordID2", m_iRecordID2, u"");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"date", m_date, u"تاریخ");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Bool(u"bRepeat", m_bRepeat, u"تکرار");
    RFX_Date(u"dateTold", m_dateTold, u"");
}

QString CTblAlarm::GetDesc(int id, int database)
{
    CTblAlarm alarm(database);
    if (id < 1 || !alarm.IsRecordExist(u"iID"_s, id))
        return {};
    QString text = AlarmTime::text(alarm.m_date) + u" - "_s + alarm.m_sDesc;
    if (alarm.isDone())
        text += u" (انجام شد)"_s;
    return text;
}

int CTblAlarm::dueCount(int userID, int database)
{
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery("SELECT COUNT(*) FROM Alarms WHERE " + dueCondition(userID));
    return temp.GetLongFieldValue(0);
}

QList<CTblAlarm::Due> CTblAlarm::dueAtLogin(int userID, int database)
{
    CTblAlarm alarm(database);
    alarm.m_filter = dueCondition(userID) + " AND (bRepeat<>0 OR dateTold IS NULL)";
    alarm.m_sort = "date,iID";
    QList<Due> due;
    for (alarm.Open(true, true, true); !alarm.IsEOF(); alarm.MoveNext())
        due.append({alarm.m_iID, alarm.m_date, alarm.m_sDesc});
    return due;
}

void CTblAlarm::markTold(const QList<Due> &told, int database)
{
    if (told.isEmpty() || CDBSetting::IsClosed(database))
        return;
    QList<int> ids;
    for (const Due &due : told)
        ids.append(due.id);
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery(KSql::formatted("UPDATE Alarms SET dateTold=NOW() WHERE iID IN (%1)", KSql::list(ids)));
}

bool CTblAlarm::setDone(int id, int userID, int database)
{
    GetDBSetting()->RequireOpenDB();
    CTblAlarm alarm(database);
    if (!alarm.IsRecordExist(u"iID"_s, id, 0, ofUser(userID)))
        return false;
    alarm.Edit();
    alarm.m_iStatus = statusDone;
    return alarm.Update(true);
}

bool CTblAlarm::postpone(int id, int userID, const QDateTime &until, int database)
{
    GetDBSetting()->RequireOpenDB();
    CTblAlarm alarm(database);
    if (!alarm.IsRecordExist(u"iID"_s, id, 0, ofUser(userID)))
        return false;
    alarm.Edit();
    alarm.m_date = until;
    alarm.m_dateTold = {};
    return alarm.Update(true);
}

bool CTblAlarm::deleteAlarm(int id, int userID, int database)
{
    GetDBSetting()->RequireOpenDB();
    CTblAlarm alarm(database);
    const bool isKnown = alarm.IsRecordExist(u"iID"_s, id);
    KTransaction transaction(database);
    CTblTemp temp(database);
    temp.Open(true, false, true);
    const bool deleted = temp.ExecuteQuery(KSql::formatted("DELETE FROM Alarms WHERE iID=%1", id) + ofUser(userID)) > 0;
    if (deleted && isKnown)
        alarm.noteDeleted();
    transaction.commit();
    return deleted;
}

void CTblAlarm::DeleteAllRelatedRecords(int kind, int key, int database)
{
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.FormatAndExecuteQuery("DELETE FROM Alarms WHERE iTable=%d AND iRecordID=%d", kind, key);
}
