// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// Subsidiary accounts (six digits) under a general one.
class TZACCOUNTINGDATA_EXPORT CTblHesabMoeen : public KMySQL, private KLiveCount<CTblHesabMoeen>
{
public:
    using KLiveCount<CTblHesabMoeen>::liveCount;

    explicit CTblHesabMoeen(int database = 0);
    ~CTblHesabMoeen() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    QString m_sName;
    qint32 m_iStatus = 0;
    qint32 m_iHesabKolCode = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
