// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptMethods.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// Money received from persons and paid to them; the key is the number of the receipt. Each stands on its own accounting document
// (iDocNum of iFiscalYear), which ReceiptPosting writes. What counts as received or paid is what is valid.
class TZTREASURYDATA_EXPORT CTblReceipts : public KMySQL, private KLiveCount<CTblReceipts>
{
public:
    using KLiveCount<CTblReceipts>::liveCount;

    // Values of iKind.
    enum Kind : int {
        received = 0,
        paid = 1
    };
    // Values of iMethod; see ReceiptMethods.
    enum Method : int {
        unknown = ReceiptMethods::Unknown,
        cash = ReceiptMethods::Cash,
        bank = ReceiptMethods::Bank,
        card = ReceiptMethods::Card,
        cheque = ReceiptMethods::Cheque
    };
    // Values of iStatus.
    enum Status : int {
        valid = 0,
        voided = 1,
        unpaid = 2 // its cheque bounced or was given back: the row stands and pays nothing
    };
    // Characters of sVoidReason, sDesc and sFor.
    static constexpr int longestReason = 250;
    static constexpr int longestDescription = 500;
    static constexpr int longestPurpose = 200;

    explicit CTblReceipts(int database = 0);
    ~CTblReceipts() override;
    QString GetTableName() const override;

    // "دریافت" or "پرداخت".
    static QString kindName(int kind);
    // "نقدی", "بانکی", "کارت", "چک"; "-" for unknown.
    static QString methodName(int method);
    // "معتبر", "باطل", "برگشتی".
    static QString statusName(int status);

    qint32 m_iID = 0;
    qint32 m_iPersonID = 0;
    QDateTime m_date;
    double m_dAmount = 0;
    QString m_sDesc;
    qint32 m_iDocNum = 0;
    qint32 m_iFiscalYear = 0;
    qint32 m_iUserID = 0;
    qint32 m_iTable = 0; // kind of the record that it is for (RecordKinds.h), 0: on account
    qint32 m_iRecordID = 0;
    qint32 m_iPaymentID = 0; // the instalment of that record; 0: none
    qint32 m_iStatus = valid;
    qint32 m_iVoidUserID = 0; // who made it void, and when
    QDateTime m_dateVoid;
    QString m_sVoidReason;
    qint32 m_iKind = received;
    qint32 m_iMethod = unknown;
    qint32 m_iAccount = 0; // cash box or bank account; 0: by cheque, or not kept
    qint32 m_iFor = 0;     // ReceiptPurpose::For
    qint32 m_iSide = 0;    // of the contract that it is for
    QString m_sFor;        // the same in words; empty on account
    qint32 m_iChequeID = 0;
    qint32 m_iVoidDocNum = 0; // the reversing document, where its own could not be emptied; 0: none
    qint32 m_iVoidFiscalYear = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
