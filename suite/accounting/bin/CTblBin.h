// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// The entries of the bin, for lists. They are written by Bin alone.
class TZACCOUNTINGDATA_EXPORT CTblBin : public KMySQL, private KLiveCount<CTblBin>
{
public:
    using KLiveCount<CTblBin>::liveCount;

    explicit CTblBin(int database = 0);
    ~CTblBin() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    QString m_sTable;
    qint32 m_iRecordID = 0;
    QString m_sTitle;
    qint32 m_iUserID = 0;
    QString m_sComputer;
    QDateTime m_date;

protected:
    void DoFieldExchange() override;
};
