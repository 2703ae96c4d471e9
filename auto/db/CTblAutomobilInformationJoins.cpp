// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilInformationJoins.h"

using namespace Qt::StringLiterals;

CTblAutomobilInformationJoins::CTblAutomobilInformationJoins(int database)
    : AutomobilInformationColumns(database)
{
}

CTblAutomobilInformationJoins::~CTblAutomobilInformationJoins() = default;

QString CTblAutomobilInformationJoins::fromClause() const
{
    return u"AutomobilInformations ai LEFT OUTER JOIN Items it ON (ai.iAutomobilType=it.iID OR ai.iColor=it.iID) LEFT OUTER"
           " JOIN CarModels cm ON ai.iModel=cm.iID LEFT OUTER JOIN CarClasses cc ON ai.iBrigade=cc.iID"_s;
}

// Items gives no column; it has more than one row for the brand and the colour of one record.
KSpareJoin CTblAutomobilInformationJoins::spareJoin() const
{
    return {.rest = u"AutomobilInformations ai LEFT OUTER JOIN CarModels cm ON ai.iModel=cm.iID LEFT OUTER JOIN CarClasses cc ON ai.iBrigade=cc.iID"_s, .grouping = " GROUP BY ai.iID", .names = {"it.", "iType", "sTitle"}};
}

void CTblAutomobilInformationJoins::DoFieldExchange()
{
    setAlias(u"ai");
    bindOffer();
    RFX_Long(u"iYear", m_iYear, u"سال");
    bindVehicle();
    RFX_Long(u"iBodyStatus", m_iBodyStatus, u"وضعيت بدنه");
    bindSale();
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
    bindArchive();
    setAlias(u"cm");
    RFX_Text(u"sName", m_sModelName, u"مدل");
    setAlias(u"cc");
    RFX_Text(u"sName", m_sClassName, u"تیپ");
}
