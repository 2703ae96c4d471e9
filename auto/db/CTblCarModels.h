// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// Models of the car catalog; iClassID is the key of the model's brand.
class CTblCarModels : public KMySQL, private KLiveCount<CTblCarModels>
{
public:
    using KLiveCount<CTblCarModels>::liveCount;

    explicit CTblCarModels(int database = 0);
    ~CTblCarModels() override;
    QString GetTableName() const override;
    // Also deletes the model's classes.
    bool Delete() override;

    qint32 m_iID = 0;
    QString m_sName;
    qint32 m_iClassID = 0;
    qint32 m_iYearFrom = 0;
    qint32 m_iYearTo = 0;
    QDateTime m_dateCreate;
    qint32 m_iStatus = 0;
    qint32 m_iUserID = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
