// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// Read-only source of the overdue desk: the unpaid instalments of contracts that count - not void - with their
// contract (ac), payer (p) and the last call about them (fu). Columns are named with their table's alias ("ap.date").
class CTblDueInstalments : public KMySQL, private KLiveCount<CTblDueInstalments>
{
public:
    using KLiveCount<CTblDueInstalments>::liveCount;

    explicit CTblDueInstalments(int database = 0);
    ~CTblDueInstalments() override;
    QString GetTableName() const override;

    // The condition of what is due at all; begins with " AND ". Of the current department, where the office works by departments.
    static KSql condition();

    // What the contract is called by, and whose turn it is to pay: a buyer typed by hand is named by the contract.
    int contractNumber() const { return m_iContractNum != 0 ? m_iContractNum : m_iContractCode; }
    QString payer() const { return m_sPersonName.isEmpty() ? m_sBuyerName : m_sPersonName; }
    QString telephone() const;

    qint32 m_iID = 0; // of the instalment
    qint32 m_iContractID = 0;
    qint32 m_iPersonID = 0; // 0: the buyer is typed by hand
    qint32 m_iNum = 0;
    QDateTime m_date;
    double m_dAmount = 0;
    qint32 m_iContractCode = 0;
    qint32 m_iContractNum = 0;
    QString m_sBuyerName;
    QString m_sBuyerMobile;
    QString m_sBuyerTel;
    QString m_sAutomobilName;
    QString m_sNumOfPlates;
    QString m_sPersonName;
    QString m_sPersonMobile;
    QString m_sPersonTel;
    QString m_sNote;
    QDateTime m_datePromised;

protected:
    QString fromClause() const override;
    void DoFieldExchange() override;
};
