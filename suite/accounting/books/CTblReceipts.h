// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KLiveCount.h"
#include "suite/db/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

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
    };

    explicit CTblReceipts(int database = 0);
    ~CTblReceipts() override;
    QString GetTableName() const override;

    // Writes the receipt and its document in one transaction; returns the document's number. Throws KAccountingError when the
    // database is closed, the amount is not above 0, or there is no person or account.
    static int receive(const Receipt &receipt, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iPersonID = 0;
    QDateTime m_date;
    double m_dAmount = 0;
    QString m_sDesc;
    qint32 m_iDocNum = 0;
    qint32 m_iFiscalYear = 0;
    qint32 m_iUserID = 0;

protected:
    void DoFieldExchange() override;
};
