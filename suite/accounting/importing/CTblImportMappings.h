// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

#include <QList>

// Which columns of a file fill which fields, under a name, for the next file with such titles. All users share them.
class TZACCOUNTINGDATA_EXPORT CTblImportMappings : public KMySQL, private KLiveCount<CTblImportMappings>
{
public:
    using KLiveCount<CTblImportMappings>::liveCount;

    static constexpr int longestName = 40;

    struct Entry
    {
        qint32 key = 0;
        QString name;
        QString mapping; // ImportMapping::toText
    };

    explicit CTblImportMappings(int database = 0);
    ~CTblImportMappings() override;
    QString GetTableName() const override;

    // Of a kind, by name. Throws CMySQLException.
    static QList<Entry> entries(const QString &kind, int database = 0);
    // Keeps the mapping under that name, in place of one that has it. Throws FieldRefused for a name that is empty or too long.
    static void keep(const QString &kind, const QString &name, const QString &mapping, int database = 0);

    qint32 m_iID = 0;
    QString m_sKind;
    QString m_sName;
    QString m_sMapping;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
