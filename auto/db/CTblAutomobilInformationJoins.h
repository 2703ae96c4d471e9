// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/AutomobilInformationColumns.h"
#include "suite/db/records/KLiveCount.h"

// Read-only source of the car list: cars with the names of their model and class. Columns are named with their table's
// alias ("ai.iCode"). A car joins an item row for its type and another for its colour, so every filter ends with
// " GROUP BY ai.iID". Pictures are not part of it.
class CTblAutomobilInformationJoins : public AutomobilInformationColumns, private KLiveCount<CTblAutomobilInformationJoins>
{
public:
    using KLiveCount<CTblAutomobilInformationJoins>::liveCount;

    explicit CTblAutomobilInformationJoins(int database = 0);
    ~CTblAutomobilInformationJoins() override;

    QString m_sModelName;
    QString m_sClassName;

protected:
    QString fromClause() const override;
    KSpareJoin spareJoin() const override;
    void DoFieldExchange() override;
};
