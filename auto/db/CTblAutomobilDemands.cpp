// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilDemands.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/office/CodeReservation.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/treasury/followups/CTblFollowUps.h"

using namespace Qt::StringLiterals;

CTblAutomobilDemands::CTblAutomobilDemands(int database)
    : AutomobilDemandColumns(database)
{
}

CTblAutomobilDemands::~CTblAutomobilDemands() = default;

bool CTblAutomobilDemands::Delete()
{
    requireRow("Delete");
    KTransaction transaction(database());
    CTblFileDocs::DeleteAllRelatedRecords(recordKind, m_iID, 0, database());
    CTblAlarm::DeleteAllRelatedRecords(recordKind, m_iID, database());
    CTblFollowUps::deleteOf(recordKind, m_iID, database());
    const bool deleted = KMySQL::Delete();
    transaction.commit();
    return deleted;
}

QList<QStringList> CTblAutomobilDemands::fieldGroups()
{
    return {{u"iModelFrom"_s, u"iModelUpTo"_s}, {u"dAmountFrom"_s, u"dAmountUpTo"_s}};
}

void CTblAutomobilDemands::expectNextCode(int database)
{
    CodeReservation::expectNext(u"AutomobilDemands"_s, database);
}

qint32 CTblAutomobilDemands::nextCode(int database)
{
    return CodeReservation::next(u"AutomobilDemands"_s, database);
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
    int archived = 0;
    KTransaction::runReplayable(
        [&] {
            const QString table = u"AutomobilDemands"_s;
            const KSql none = Placeholders::none(table);
            CTblTemp old(database);
            old.Open(false, false, true);
            old.FormatAndExecuteQuery("SELECT iID FROM AutomobilDemands "
                                      "WHERE iStatus=0 AND iArchiveUserID=0 AND DATEDIFF(NOW(), dateCreate)>%d AND %s FOR UPDATE",
                                      days, none);
            CTblTemp statement(database);
            archived = statement.FormatAndExecuteQuery("UPDATE AutomobilDemands SET iArchiveUserID=%d, dateArchive=NOW() "
                                                       "WHERE iStatus=0 AND iArchiveUserID=0 AND DATEDIFF(NOW(), dateCreate)>%d AND %s",
                                                       userID, days, none);
            for (; old.HasResultRow(); old.MoveNextResult())
                KChangeLog::note(table, old.GetLongFieldValue(0), KChange::Kind::Archived, database);
        },
        database);
    return archived;
}

void CTblAutomobilDemands::setAlarm(qint32 id, qint32 alarmID, int database)
{
    KTransaction transaction(database);
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery("UPDATE AutomobilDemands SET iAlarmID=%d WHERE iID=%d", alarmID, id);
    if (!Placeholders::contains({u"AutomobilDemands"_s, id}, database))
        KChangeLog::note(u"AutomobilDemands"_s, id, KChange::Kind::Changed, database, {{u"iAlarmID"_s, alarmID > 0 ? 0 : 1, alarmID}});
    transaction.commit();
}

qint32 CTblAutomobilDemands::alarmOf(qint32 id, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.ExecuteQuery(
        KSql::formatted("SELECT a.iID FROM AutomobilDemands d JOIN Alarms a ON a.iID=d.iAlarmID WHERE d.iID=%1", id));
    return statement.GetLongFieldValue(0);
}

bool CTblAutomobilDemands::takeAlarm(qint32 id, qint32 alarmID, int database)
{
    bool taken = false;
    KTransaction::runReplayable(
        [&] {
            CTblAutomobilDemands demand(database);
            taken = demand.lockRecord(id) && alarmOf(id, database) == 0;
            CTblAlarm added(database);
            if (taken)
                setAlarm(id, alarmID, database);
            else if (added.IsRecordExist(u"iID"_s, alarmID))
                added.Delete();
        },
        database);
    return taken;
}

void CTblAutomobilDemands::DoFieldExchange()
{
    bindDemand();
    bindArchive();
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iAlarmID", m_iAlarmID, u"یادآوری");
}
