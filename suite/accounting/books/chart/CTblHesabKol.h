// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// General accounts (four digits).
class TZACCOUNTINGDATA_EXPORT CTblHesabKol : public KMySQL, private KLiveCount<CTblHesabKol>
{
public:
    using KLiveCount<CTblHesabKol>::liveCount;

    explicit CTblHesabKol(int database = 0);
    ~CTblHesabKol() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    QString m_sName;
    qint32 m_iStatus = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
