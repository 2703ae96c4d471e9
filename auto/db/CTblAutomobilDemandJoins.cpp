// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilDemandJoins.h"

using namespace Qt::StringLiterals;

CTblAutomobilDemandJoins::CTblAutomobilDemandJoins(int database)
    : AutomobilDemandColumns(database, Yeh::Arabic)
{
}

CTblAutomobilDemandJoins::~CTblAutomobilDemandJoins() = default;

QString CTblAutomobilDemandJoins::fromClause() const
{
    return u"AutomobilDemands ad INNER JOIN Persons p ON ad.iPersonID=p.iID LEFT OUTER JOIN Items it ON "
           "(ad.iAutomobilType=it.iID OR ad.iColor=it.iID)"_s;
}

// Items gives no column; it has more than one row for the brand and the colour of one record.
KSpareJoin CTblAutomobilDemandJoins::spareJoin() const
{
    return {.rest = u"AutomobilDemands ad INNER JOIN Persons p ON ad.iPersonID=p.iID"_s, .grouping = " GROUP BY ad.iID", .names = {"it.", "iType", "sTitle"}};
}

void CTblAutomobilDemandJoins::DoFieldExchange()
{
    setAlias(u"ad");
    bindDemand();
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
    bindArchive();
}
