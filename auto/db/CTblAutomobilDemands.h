// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/AutomobilDemandColumns.h"
#include "suite/db/records/KLiveCount.h"

// One row per demand: a customer and the car wanted. Members carry the names of their columns. Amounts are in the suite's money
// unit, model years Shamsi or ordinary as typed, keys 0 when nothing is referred to; iAutomobilType is the key of a brand
// of the catalog, iColor of an item, iAlarmID of a reminder.
class CTblAutomobilDemands : public AutomobilDemandColumns, private KLiveCount<CTblAutomobilDemands>
{
public:
    using KLiveCount<CTblAutomobilDemands>::liveCount;

    explicit CTblAutomobilDemands(int database = 0);
    ~CTblAutomobilDemands() override;
    // Also deletes the demand's attached files and its reminders; all of it or nothing.
    bool Delete() override;

    // Number under which the suite keeps what belongs to a demand: attached files, the reminder.
    static constexpr int recordKind = 70;

    // The row as a message names it.
    static QString spokenName() { return QStringLiteral("این تقاضا"); }
    // Columns that count as one field when two desks change the row at once (RowMerge): the two ends of a range.
    static QList<QStringList> fieldGroups();

    // The highest code so far plus one (1 in an empty table); read without a lock.
    static qint32 nextCode(int database = 0);
    // That it will be asked behind the next statement that writes (KReadAhead).
    static void expectNextCode(int database = 0);
    // By code, not by key.
    static void archive(qint32 code, qint32 userID, int database = 0);
    static void unarchive(qint32 code, int database = 0);
    // Archives the active demands not archived yet that were created more than that many days before today, by the server's
    // clock; the time of day does not count. One statement; returns how many there were.
    static int archiveOlderThan(int days, qint32 userID, int database = 0);
    // Key of the demand's reminder as it is now; 0 without one, also where it is gone from the reminders.
    static qint32 alarmOf(qint32 id, int database = 0);
    // Sets the demand's reminder, by the demand's key.
    static void setAlarm(qint32 id, qint32 alarmID, int database = 0);
    // Sets a reminder that was just added for the demand. Where another desk gave it one meanwhile, or deleted it, the added reminder is
    // deleted again and false returned.
    [[nodiscard]] static bool takeAlarm(qint32 id, qint32 alarmID, int database = 0);

    qint32 m_iAlarmID = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
