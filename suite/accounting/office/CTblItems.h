// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// Named values of every kind that forms offer for choice; iType separates the kinds.
class TZACCOUNTINGDATA_EXPORT CTblItems : public KMySQL, private KLiveCount<CTblItems>
{
public:
    using KLiveCount<CTblItems>::liveCount;

    // Item types (stored in iType), by the numbers that databases hold.
    static constexpr int typeSystem = 802;
    static constexpr int typeSource = 803;
    static constexpr int typeCountry = 804; // where a car comes from
    static constexpr int typeEngineVolume = 806;
    static constexpr int typeColor = 808;
    static constexpr int typeClearanceCustoms = 809;
    static constexpr int typeAccessory = 810;
    static constexpr int typeFeature = 811;
    static constexpr int typeDeliveredDocument = 812;
    static constexpr int typeClause = 814; // clauses that a contract's notes line takes
    static constexpr int typeBodyStatus = 815;
    static constexpr int typeWheelCount = 816;
    static constexpr int typeCylinderCount = 817;
    static constexpr int typeCapacity = 818;

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
    bool isLogged() const override { return true; }
};
