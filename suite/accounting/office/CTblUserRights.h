// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// What a user may do on a form: one row per user and form, read through KSecurity.
class TZACCOUNTINGDATA_EXPORT CTblUserRights : public KMySQL, private KLiveCount<CTblUserRights>
{
public:
    using KLiveCount<CTblUserRights>::liveCount;

    explicit CTblUserRights(int database = 0);
    ~CTblUserRights() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iUserID = 0;
    QString m_sForm;
    qint32 m_iRights = 0; // bits of KSecurity::Right

protected:
    void DoFieldExchange() override;
};
