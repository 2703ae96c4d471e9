// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// Received and given cheques. A cheque comes in or goes out by receipts or payments (Receipts.iChequeID), and changes its state by
// rows of ChequeChanges.
class TZTREASURYDATA_EXPORT CTblCheques : public KMySQL, private KLiveCount<CTblCheques>
{
public:
    using KLiveCount<CTblCheques>::liveCount;

    // Characters of sNumber, sBank, sBranch, sBranchCode and sDrawer.
    static constexpr int longestNumber = 30;
    static constexpr int longestBank = 100;
    static constexpr int longestBranch = 100;
    static constexpr int longestBranchCode = 20;
    static constexpr int longestDrawer = 200;

    explicit CTblCheques(int database = 0);
    ~CTblCheques() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iKind = 0;  // CTblReceipts::Kind: received or given (paid)
    qint32 m_iState = 0; // ChequeState
    QString m_sSayad;    // 16 digits
    QString m_sNumber;
    QString m_sBank;
    QString m_sBranch;
    QString m_sBranchCode;
    double m_dAmount = 0;
    QDateTime m_dateDue;
    QString m_sDrawer;
    qint32 m_iPersonID = 0;   // from whom, or to whom
    qint32 m_iAccount = 0;    // bank account where it was deposited or cleared
    qint32 m_iEndorsedID = 0; // the person it was endorsed to
    qint32 m_iTable = 0;      // the record that it was entered for, as in Receipts
    qint32 m_iRecordID = 0;
    QString m_sFor; // in words; empty on account
    QString m_sDesc;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
