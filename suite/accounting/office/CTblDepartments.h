// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// Branches of the office.
class TZACCOUNTINGDATA_EXPORT CTblDepartments : public KMySQL, private KLiveCount<CTblDepartments>
{
public:
    using KLiveCount<CTblDepartments>::liveCount;

    explicit CTblDepartments(int database = 0);
    ~CTblDepartments() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    QString m_sName;

protected:
    void DoFieldExchange() override;
};
