// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// What a user asks a list for again and again, under a name: his own, or one that all users of the office share.
class TZACCOUNTINGDATA_EXPORT CTblSavedFilters : public KMySQL, private KLiveCount<CTblSavedFilters>
{
public:
    using KLiveCount<CTblSavedFilters>::liveCount;

    static constexpr int longestName = 40;
    static constexpr qint32 shared = 0; // as the user of a filter

    struct Entry
    {
        qint32 key = 0;
        QString name;
        qint32 userID = 0; // shared: everybody's
        QString filter;    // SavedFilterText
    };

    explicit CTblSavedFilters(int database = 0);
    ~CTblSavedFilters() override;
    QString GetTableName() const override;

    // Of one list, those of the user and then the shared ones, by name. Throws CMySQLException.
    static QList<Entry> entries(const QString &list, qint32 userID);
    // For a user who keeps a filter (RowEdit): the filter as it was listed, or a new one; what settles it. Throws FieldRefused for a
    // name that is empty or too long, and for one that another filter than that of the key has got.
    void begin(const QString &list, const Entry &entry);
    void settle(qint32 key) const;

    qint32 m_iID = 0;
    QString m_sList;
    QString m_sName;
    qint32 m_iUserID = 0;
    QString m_sFilter;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
