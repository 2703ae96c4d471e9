// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/invoices/Invoice.h"

// Invoices of services. The key is the invoice's number; sales and purchases share one run of numbers. Written by
// InvoicePosting, which keeps an invoice, its lines (CTblFactorStuffs) and its accounting document together.
class TZACCOUNTINGDATA_EXPORT CTblFactors : public KMySQL, private KLiveCount<CTblFactors>
{
public:
    using KLiveCount<CTblFactors>::liveCount;

    // iType
    static constexpr int sale = Invoice::sale;
    static constexpr int purchase = Invoice::purchase;
    // iStatus
    static constexpr int valid = 0;
    static constexpr int voided = 1;

    explicit CTblFactors(int database = 0);
    ~CTblFactors() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iType = sale;
    qint32 m_iStatus = valid;
    qint32 m_iPersonID = 0;
    qint32 m_iDepartmentID = 0;
    QDateTime m_date;
    QString m_sDesc;
    // The invoice's total: the sum of its lines' amounts, before discount, tax and duty. What the person owes is
    // dAmount - dDiscount + dTax + dImposition.
    double m_dAmount = 0;
    double m_dDiscount = 0;
    double m_dTax = 0;
    double m_dImposition = 0;
    qint32 m_iDocNum = 0; // stays with a void invoice, whose document is void too
    qint32 m_iFiscalYear = 0;
    qint32 m_iUserID = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
