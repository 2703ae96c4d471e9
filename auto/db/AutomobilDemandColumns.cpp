// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/AutomobilDemandColumns.h"

using namespace Qt::StringLiterals;

AutomobilDemandColumns::AutomobilDemandColumns(int database, Yeh yeh)
    : KMySQL(database)
    , m_yeh(yeh)
{
}

AutomobilDemandColumns::~AutomobilDemandColumns() = default;

QString AutomobilDemandColumns::GetTableName() const
{
    return u"AutomobilDemands"_s;
}

QString AutomobilDemandColumns::spelled(QStringView persian) const
{
    constexpr QChar persianYeh = u'\u06cc';
    constexpr QChar arabicYeh = u'\u064a';
    QString caption = persian.toString();
    return m_yeh == Yeh::Persian ? caption : caption.replace(persianYeh, arabicYeh);
}

void AutomobilDemandColumns::bindDemand()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Long(u"iCode", m_iCode, {});
    RFX_Long(u"iPersonID", m_iPersonID, {});
    namesFrom(u"iPersonID", u"Persons", u"iID", u"sName2");
    RFX_Date(u"dateCreate", m_dateCreate, spelled(u"تاریخ ایجاد"));
    RFX_Text(u"sAcquaintances", m_sAcquaintances, spelled(u"نحوه آشنایی"));
    RFX_Long(u"iAutomobilType", m_iAutomobilType, u"نوع خودرو");
    namesFrom(u"iAutomobilType", u"CarBrands", u"iID", u"sName");
    RFX_Long(u"iModelFrom", m_iModelFrom, u"مدل از");
    RFX_Long(u"iModelUpTo", m_iModelUpTo, u" تا مدل");
    RFX_Long(u"iColor", m_iColor, u"رنگ");
    namesFrom(u"iColor", u"Items", u"iID", u"sName");
    RFX_Double(u"dAmountFrom", m_dAmountFrom, u"مبلغ از");
    RFX_Double(u"dAmountUpTo", m_dAmountUpTo, u" تا مبلغ");
    RFX_Text(u"sDesc", m_sDesc, spelled(u"توضیحات"));
    RFX_Text(u"sDescSpecial", m_sDescSpecial, spelled(u"توضیحات ویز"));
    RFX_Date(u"dateReference", m_dateReference, spelled(u"تاریخ مراجعه"));
    RFX_Long(u"iFacilities", m_iFacilities, u"امکانات");
    namesFrom(u"iFacilities", u"Items", u"iID", u"sName");
    RFX_Date(u"dateMaxTimeNeed", m_dateMaxTimeNeed, spelled(u"تاریخ حداکثر زمان نیاز"));
    RFX_Long(u"iStatus", m_iStatus, {});
}

void AutomobilDemandColumns::bindArchive()
{
    RFX_Long(u"iArchiveUserID", m_iArchiveUserID, spelled(u"بایگانی"));
    namesFrom(u"iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateArchive", m_dateArchive, spelled(u"تاریخ بایگانی"));
}
