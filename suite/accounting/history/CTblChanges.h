// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// The log of changes as rows that are read; KChangeLog writes them.
class TZACCOUNTINGDATA_EXPORT CTblChanges : public KMySQL
{
public:
    explicit CTblChanges(int database = 0);
    ~CTblChanges() override;
    QString GetTableName() const override;

    KChange::Kind kind() const { return static_cast<KChange::Kind>(m_iKind); }

    qint32 m_iID = 0;
    QString m_sTable;
    qint32 m_iRecordID = 0;
    qint32 m_iKind = 0;   // KChange::Kind
    qint32 m_iUserID = 0; // 0: the program itself
    QString m_sComputer;
    QDateTime m_date;
    QString m_sValues; // KChangedValues; empty: not noted

protected:
    void DoFieldExchange() override;
};
