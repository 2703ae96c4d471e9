// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KLiveCount.h"
#include "suite/db/KMySQL.h"

// Read-only source of the demand list. Columns are named with their table's alias ("ad.iCode"). A demand whose person is
// gone is not in it. A demand meets an item row for its type and another for its colour, so every filter ends with
// " GROUP BY ad.iID".
class CTblAutomobilDemandJoins : public KMySQL, private KLiveCount<CTblAutomobilDemandJoins>
{
public:
    using KLiveCount<CTblAutomobilDemandJoins>::liveCount;

    explicit CTblAutomobilDemandJoins(int database = 0);
    ~CTblAutomobilDemandJoins() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    qint32 m_iPersonID = 0;
    QDateTime m_dateCreate;
    QString m_sAcquaintances;
    qint32 m_iAutomobilType = 0;
    qint32 m_iModelFrom = 0;
    qint32 m_iModelUpTo = 0;
    qint32 m_iColor = 0;
    double m_dAmountFrom = 0;
    double m_dAmountUpTo = 0;
    QString m_sDesc;
    QString m_sDescSpecial;
    QDateTime m_dateReference;
    qint32 m_iFacilities = 0;
    QDateTime m_dateMaxTimeNeed;
    qint32 m_iStatus = 0;
    qint32 m_iUserID = 0;
    qint32 m_iArchiveUserID = 0;
    QDateTime m_dateArchive;

protected:
    QString fromClause() const override;
    void DoFieldExchange() override;
};
