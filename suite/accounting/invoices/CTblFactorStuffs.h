// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// Lines of the invoices.
class TZACCOUNTINGDATA_EXPORT CTblFactorStuffs : public KMySQL, private KLiveCount<CTblFactorStuffs>
{
public:
    using KLiveCount<CTblFactorStuffs>::liveCount;

    // iKind
    static constexpr int ordinary = 0;
    static constexpr int returnedSale = 3;
    static constexpr int returnedPurchase = 4;
    // The kind of the lines of an invoice by its iType: a return invoice is one throughout.
    static int kindOf(int type, bool returned);
    static bool isReturned(int kind) { return kind == returnedSale || kind == returnedPurchase; }

    explicit CTblFactorStuffs(int database = 0);
    ~CTblFactorStuffs() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iFactorNum = 0; // key of the invoice
    qint32 m_iType = 0;      // that of the invoice
    qint32 m_iKind = ordinary;
    qint32 m_iServiceID = 0; // 0: no service of the list, only the description
    QString m_sDesc;
    double m_dCount = 0;
    double m_dPrice = 0;  // of one
    double m_dAmount = 0; // dCount * dPrice in the decimals of the money unit, above 0 on a returned line too
    qint32 m_iDepartmentID = 0;

protected:
    void DoFieldExchange() override;
};
