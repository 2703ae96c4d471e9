// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// One row per instalment of a contract. The column iStatus is not bound: a row added through this class is unpaid (0), and
// whether it is paid (1) is read and set by statements of their own.
class CTblAutomobilPayments : public KMySQL, private KLiveCount<CTblAutomobilPayments>
{
public:
    using KLiveCount<CTblAutomobilPayments>::liveCount;

    explicit CTblAutomobilPayments(int database = 0);
    ~CTblAutomobilPayments() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iDepartmentID = 0;
    qint32 m_iAutomobilContractID = 0; // key of the contract
    qint32 m_iPersonID = 0;            // the payer
    qint32 m_iNum = 0;                 // running number within the plan, from 1
    QDateTime m_date;                  // when it is due
    QString m_sDesc;
    double m_dAmount = 0; // in the suite's money unit
    qint32 m_iDocNum = 0;
    double m_dExtra = 0; // the interest in dAmount
    qint32 m_iUserID = 0;
    qint32 m_iLevel = 0;
    qint32 m_iDays = 0;           // interval to the next instalment, in days; 0 when it is in months
    qint32 m_iMonths = 0;         // the same in months
    qint32 m_bPercentMonthly = 0; // 1: the rate is per month

protected:
    void DoFieldExchange() override;
};
