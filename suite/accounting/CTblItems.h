// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/KLiveCount.h"
#include "auto/db/KMySQL.h"
#include "suite/accounting/TzAccountingExport.h"

// Named values of every kind that forms offer for choice; iType separates the kinds.
class TZACCOUNTING_EXPORT CTblItems : public KMySQL, private KLiveCount<CTblItems>
{
public:
    using KLiveCount<CTblItems>::liveCount;

    // Item types (stored in iType). "تبصره": clauses that a contract's notes line takes.
    static constexpr int typeClause = 814;

    explicit CTblItems(int database = 0);
    ~CTblItems() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iType = 0;
    QString m_sName;
    QString m_sTitle;
    qint32 m_iStatus = 0;

protected:
    void DoFieldExchange() override;
};
