// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilDemandJoins.h"

CTblAutomobilDemandJoins::CTblAutomobilDemandJoins(int database)
    : KMySQL(database)
{
}

CTblAutomobilDemandJoins::~CTblAutomobilDemandJoins() = default;

QString CTblAutomobilDemandJoins::GetTableName() const
{
    return QStringLiteral("AutomobilDemands");
}

QString CTblAutomobilDemandJoins::fromClause() const
{
    return QStringLiteral("AutomobilDemands ad INNER JOIN Persons p ON ad.iPersonID=p.iID LEFT OUTER JOIN Items it ON "
                          "(ad.iAutomobilType=it.iID OR ad.iColor=it.iID)");
}

void CTblAutomobilDemandJoins::DoFieldExchange()
{
    RFX_Long(u"ad.iID", m_iID, {});
    RFX_Long(u"ad.iCode", m_iCode, {});
    RFX_Long(u"ad.iPersonID", m_iPersonID, {});
    namesFrom(u"ad.iPersonID", u"Persons", u"iID", u"sName2");
    RFX_Date(u"ad.dateCreate", m_dateCreate, u"تاريخ ايجاد");
    RFX_Text(u"ad.sAcquaintances", m_sAcquaintances, u"نحوه آشنايي");
    RFX_Long(u"ad.iAutomobilType", m_iAutomobilType, u"نوع خودرو");
    namesFrom(u"ad.iAutomobilType", u"CarBrands", u"iID", u"sName");
    RFX_Long(u"ad.iModelFrom", m_iModelFrom, u"مدل از");
    RFX_Long(u"ad.iModelUpTo", m_iModelUpTo, u" تا مدل");
    RFX_Long(u"ad.iColor", m_iColor, u"رنگ");
    namesFrom(u"ad.iColor", u"Items", u"iID", u"sName");
    RFX_Double(u"ad.dAmountFrom", m_dAmountFrom, u"مبلغ از");
    RFX_Double(u"ad.dAmountUpTo", m_dAmountUpTo, u" تا مبلغ");
    RFX_Text(u"ad.sDesc", m_sDesc, u"توضيحات");
    RFX_Text(u"ad.sDescSpecial", m_sDescSpecial, u"توضيحات ويز");
    RFX_Date(u"ad.dateReference", m_dateReference, u"تاريخ مراجعه");
    RFX_Long(u"ad.iFacilities", m_iFacilities, u"امکانات");
    RFX_Date(u"ad.dateMaxTimeNeed", m_dateMaxTimeNeed, u"تاريخ حداکثر زمان نياز");
    RFX_Long(u"ad.iStatus", m_iStatus, {});
    RFX_Long(u"ad.iUserID", m_iUserID, u"کاربر");
    RFX_Long(u"ad.iArchiveUserID", m_iArchiveUserID, u"بايگاني");
    namesFrom(u"ad.iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"ad.dateArchive", m_dateArchive, u"تاريخ بايگاني");
}
