// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/RowMerge.h"
#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/frame/KAccountingError.h"

class KMySQL;

// A row is no longer as the window that wants to save or delete it had read it. Nothing was written.
class TZACCOUNTINGDATA_EXPORT RowChanged : public KAccountingError
{
public:
    enum class Kind {
        Conflict, // another changed what the user changed too
        Gone,     // another deleted it
        Archived, // another archived it
        Refused   // another made it what cannot be changed any more: void, closed
    };

    // About the row that the record holds, or held by that key. what: the row as the message names it; empty: "این ردیف".
    RowChanged(Kind kind, KMySQL &record, QList<RowConflict> conflicts = {});
    // About a row that is no longer there.
    RowChanged(Kind kind, KMySQL &record, qint32 key, const QString &what = {});
    // About a record with the columns iArchiveUserID and dateArchive, which tell who archived it and when.
    static RowChanged archived(KMySQL &record, const QString &what = {});
    // About a record that somebody took out of the archive before.
    static RowChanged unarchived(KMySQL &record, const QString &what = {});
    ~RowChanged() override;

    Kind kind() const { return m_kind; }
    QString table() const { return m_table; }
    qint32 key() const { return m_key; }
    QList<RowConflict> conflicts() const { return m_conflicts; }

    // Who changed the row last and when ("کاربر «…» در 1404/08/12 ساعت 10:15"); "کاربر دیگری" when that is not known.
    static QString lastChange(const QString &table, qint32 key, int database = 0);
    // The same of a known user; "کاربر دیگری" for one who is gone.
    static QString user(qint32 userID, const QDateTime &when, int database = 0);

private:
    RowChanged(Kind kind, KMySQL &record, const QString &message);

    Kind m_kind;
    QString m_table;
    qint32 m_key;
    QList<RowConflict> m_conflicts;
};
