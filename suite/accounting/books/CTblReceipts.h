// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KLiveCount.h"
#include "suite/db/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/office/ReceiptPurpose.h"

// Money received from persons. A receipt stands on its own accounting document (iDocNum of iFiscalYear): debit cash or bank,
// credit the person.
class TZACCOUNTINGDATA_EXPORT CTblReceipts : public KMySQL, private KLiveCount<CTblReceipts>
{
public:
    using KLiveCount<CTblReceipts>::liveCount;

    struct Receipt
    {
        int personID = 0;
        double amount = 0; // above 0
        QString desc;
        QDateTime date;
        int moeen = 0; // the cash or bank account that the money went to
        ReceiptPurpose purpose = {};
    };

    // Values of iStatus.
    static constexpr int valid = 0;
    static constexpr int voided = 1;
    // Characters of sVoidReason.
    static constexpr int longestReason = 250;

    explicit CTblReceipts(int database = 0);
    ~CTblReceipts() override;
    QString GetTableName() const override;

    // Writes the receipt and its document in one transaction; returns the document's number. Throws KAccountingError when the
    // database is closed, the amount is not above 0, or there is no person or account.
    static int receive(const Receipt &receipt, int database = 0);
    // Makes the receipt void: it keeps its row and the number of its document, which loses its rows and is void too. The reason is
    // kept with the receipt. Throws KAccountingError, with nothing changed, when it is gone, already void (by whom, when), or of
    // another fiscal year, without a reason, and in a closed database.
    static void makeVoid(int id, const QString &reason, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iPersonID = 0;
    QDateTime m_date;
    double m_dAmount = 0;
    QString m_sDesc;
    qint32 m_iDocNum = 0;
    qint32 m_iFiscalYear = 0;
    qint32 m_iUserID = 0;
    qint32 m_iTable = 0; // kind of the record that it was received for (RecordKinds.h), 0: on account
    qint32 m_iRecordID = 0;
    qint32 m_iPaymentID = 0; // the instalment of that record; 0: none
    qint32 m_iStatus = valid;
    qint32 m_iVoidUserID = 0; // who made it void, and when
    QDateTime m_dateVoid;
    QString m_sVoidReason;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
