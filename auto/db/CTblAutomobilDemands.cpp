// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilDemands.h"

#include "suite/db/CTblTemp.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/crm/reminders/CTblAlarm.h"

CTblAutomobilDemands::CTblAutomobilDemands(int database)
    : KMySQL(database)
{
}

CTblAutomobilDemands::~CTblAutomobilDemands() = default;

QString CTblAutomobilDemands::GetTableName() const
{
    return QStringLiteral("AutomobilDemands");
}

bool CTblAutomobilDemands::Delete()
{
    requireRow("Delete");
    KTransaction transaction(database());
    CTblFileDocs::DeleteAllRelatedRecords(recordKind, m_iID, 0, database());
    CTblAlarm::DeleteAllRelatedRecords(recordKind, m_iID, database());
    const bool deleted = KMySQL::Delete();
    transaction.commit();
    return deleted;
}

qint32 CTblAutomobilDemands::nextCode(int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.ExecuteQuery("SELECT MAX(iCode) FROM AutomobilDemands", true, true);
    return statement.GetLongFieldValue(0) + 1;
}

void CTblAutomobilDemands::archive(qint32 code, qint32 userID, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery(
        "UPDATE AutomobilDemands SET iArchiveUserID=%d, dateArchive=NOW() WHERE iCode=%d", userID, code);
}

void CTblAutomobilDemands::unarchive(qint32 code, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery("UPDATE AutomobilDemands SET iArchiveUserID=0, dateArchive=NOW() WHERE iCode=%d", code);
}

int CTblAutomobilDemands::archiveOlderThan(int days, qint32 userID, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    return statement.FormatAndExecuteQuery("UPDATE AutomobilDemands SET iArchiveUserID=%d, dateArchive=NOW() "
                                           "WHERE iStatus=0 AND iArchiveUserID=0 AND DATEDIFF(NOW(), dateCreate)>%d",
                                           userID, days);
}

void CTblAutomobilDemands::setAlarm(qint32 id, qint32 alarmID, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery("UPDATE AutomobilDemands SET iAlarmID=%d WHERE iID=%d", alarmID, id);
}

void CTblAutomobilDemands::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Long(u"iCode", m_iCode, {});
    RFX_Long(u"iPersonID", m_iPersonID, {});
    namesFrom(u"iPersonID", u"Persons", u"iID", u"sName2");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
    RFX_Text(u"sAcquaintances", m_sAcquaintances, u"نحوه آشنایی");
    RFX_Long(u"iAutomobilType", m_iAutomobilType, u"نوع خودرو");
    namesFrom(u"iAutomobilType", u"CarBrands", u"iID", u"sName");
    RFX_Long(u"iModelFrom", m_iModelFrom, u"مدل از");
    RFX_Long(u"iModelUpTo", m_iModelUpTo, u" تا مدل");
    RFX_Long(u"iColor", m_iColor, u"رنگ");
    namesFrom(u"iColor", u"Items", u"iID", u"sName");
    RFX_Double(u"dAmountFrom", m_dAmountFrom, u"مبلغ از");
    RFX_Double(u"dAmountUpTo", m_dAmountUpTo, u" تا مبلغ");
    RFX_Text(u"sDesc", m_sDesc, u"توضیحات");
    RFX_Text(u"sDescSpecial", m_sDescSpecial, u"توضیحات ویز");
    RFX_Date(u"dateReference", m_dateReference, u"تاریخ مراجعه");
    RFX_Long(u"iFacilities", m_iFacilities, u"امکانات");
    RFX_Date(u"dateMaxTimeNeed", m_dateMaxTimeNeed, u"تاریخ حداکثر زمان نیاز");
    RFX_Long(u"iStatus", m_iStatus, {});
    RFX_Long(u"iArchiveUserID", m_iArchiveUserID, u"بایگانی");
    namesFrom(u"iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateArchive", m_dateArchive, u"تاریخ بایگانی");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iAlarmID", m_iAlarmID, u"یادآوری");
}
