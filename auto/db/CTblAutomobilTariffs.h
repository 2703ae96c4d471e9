// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// One row per notary tariff: a titled cost.
class CTblAutomobilTariffs : public KMySQL, private KLiveCount<CTblAutomobilTariffs>
{
public:
    using KLiveCount<CTblAutomobilTariffs>::liveCount;

    explicit CTblAutomobilTariffs(int database = 0);
    ~CTblAutomobilTariffs() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    QDateTime m_dateCreate;
    QString m_sDesc;
    QString m_sTitle;
    double m_dAmount = 0; // in the suite's money unit
    qint32 m_iStatus = 0; // 0 active, 1 inactive

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
