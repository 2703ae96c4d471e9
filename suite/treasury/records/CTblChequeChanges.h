// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// The steps of cheques from one state to another, oldest first by key. One that was undone stays, void.
class TZTREASURYDATA_EXPORT CTblChequeChanges : public KMySQL, private KLiveCount<CTblChequeChanges>
{
public:
    using KLiveCount<CTblChequeChanges>::liveCount;

    // Values of iStatus.
    enum Status : int {
        valid = 0,
        voided = 1
    };
    // Characters of sDesc.
    static constexpr int longestDescription = 500;

    explicit CTblChequeChanges(int database = 0);
    ~CTblChequeChanges() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iChequeID = 0;
    qint32 m_iFromState = 0; // ChequeState
    qint32 m_iToState = 0;
    QDateTime m_date;
    qint32 m_iAccount = 0;  // bank account or cash box; 0: none
    qint32 m_iPersonID = 0; // to whom it was endorsed; 0: nobody
    QString m_sDesc;
    qint32 m_iDocNum = 0; // 0: nothing was booked
    qint32 m_iFiscalYear = 0;
    qint32 m_iUserID = 0;
    qint32 m_iStatus = valid;
    qint32 m_iVoidUserID = 0; // who undid it, and when
    QDateTime m_dateVoid;
    QString m_sVoidReason;
    qint32 m_iVoidDocNum = 0; // the reversing document, where its own could not be emptied; 0: none
    qint32 m_iVoidFiscalYear = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
