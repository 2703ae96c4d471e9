// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/AutomobilDemandColumns.h"
#include "suite/db/records/KLiveCount.h"

// Read-only source of the demand list. Columns are named with their table's alias ("ad.iCode"). A demand whose person is
// gone is not in it. A demand joins an item row for its type and another for its colour, so every filter ends with
// " GROUP BY ad.iID".
class CTblAutomobilDemandJoins : public AutomobilDemandColumns, private KLiveCount<CTblAutomobilDemandJoins>
{
public:
    using KLiveCount<CTblAutomobilDemandJoins>::liveCount;

    explicit CTblAutomobilDemandJoins(int database = 0);
    ~CTblAutomobilDemandJoins() override;

protected:
    QString fromClause() const override;
    KSpareJoin spareJoin() const override;
    void DoFieldExchange() override;
};
