// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/crm/TzCRMDataExport.h"

#include <QList>

// Reminders: what a user is reminded of from a date and time of day on. A reminder may belong to a record (its kind of
// RecordKinds.h, its key, and a second key that the record's own window asked for), and always to one user.
//
// An open reminder is due from its date on, until it is done. A repeating one is shown at each login while it is due; any other
// is shown at one login only, and stays in the list until it is done.
class TZCRMDATA_EXPORT CTblAlarm : public KMySQL, private KLiveCount<CTblAlarm>
{
public:
    using KLiveCount<CTblAlarm>::liveCount;

    struct Due
    {
        int id = 0;
        QDateTime date;
        QString desc;
    };

    // Values of iStatus.
    static constexpr int statusOpen = 0;
    static constexpr int statusDone = 1;
    // Characters of sDesc.
    static constexpr int longestDesc = 500;

    explicit CTblAlarm(int database = 0);
    ~CTblAlarm() override;
    QString GetTableName() const override;

    // The reminder in one line, for the form of the record behind it: its Shamsi date and time, its description, and whether
    // it is done. Empty for key 0 and for a reminder that is no longer there.
    static QString GetDesc(int id, int database = 0);

    // How many of the user's open reminders have fallen due, by the server's clock.
    static int dueCount(int userID, int database = 0);
    // Those of them that a login shows, oldest first: the repeating ones, and those that no login has shown yet. One
    // statement.
    static QList<Due> dueAtLogin(int userID, int database = 0);
    // A login has shown them. Nothing is written into a closed database, which therefore shows them again.
    static void markTold(const QList<Due> &told, int database = 0);

    // Of one's own reminders only: false when it is gone or another user's. Throw KAccountingError in a closed database.
    static bool setDone(int id, int userID, int database = 0);
    // What was shown before will be shown anew.
    static bool postpone(int id, int userID, const QDateTime &until, int database = 0);
    static bool deleteAlarm(int id, int userID, int database = 0);
    // Deletes the reminders of a record that is being deleted, of every user.
    static void DeleteAllRelatedRecords(int kind, int key, int database = 0);

    bool isDone() const { return m_iStatus != statusOpen; }
    bool isDue(const QDateTime &now) const { return !isDone() && m_date.isValid() && m_date <= now; }

    qint32 m_iID = 0;
    qint32 m_iTable = 0; // kind of the record behind it; 0: of none
    qint32 m_iRecordID = 0;
    qint32 m_iRecordID2 = 0; // a second key of the record, for example its code
    qint32 m_iUserID = 0;    // the user who is reminded
    QDateTime m_date;        // when it falls due
    QString m_sDesc;
    qint32 m_iStatus = statusOpen;
    qint32 m_bRepeat = 0;
    QDateTime m_dateTold; // the last login that showed it; NULL: none has yet

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
