// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblCarClasses.h"

using namespace Qt::StringLiterals;

CTblCarClasses::CTblCarClasses(int database)
    : KMySQL(database)
{
}

CTblCarClasses::~CTblCarClasses() = default;

QString CTblCarClasses::GetTableName() const
{
    return u"CarClasses"_s;
}

void CTblCarClasses::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
    RFX_Long(u"iBrandID", m_iBrandID, u"برند");
    namesFrom(u"iBrandID", u"CarModels", u"iID", u"sName");
    RFX_Text(u"sClassCode", m_sClassCode, u"کد کلاس خودرو");
    RFX_Long(u"iClassType", m_iClassType, u"نوع کلاس خودرو");
    RFX_Long(u"iYearFrom", m_iYearFrom, u"سال شروع");
    RFX_Long(u"iYiearTo", m_iYiearTo, u"سال خاتمه");
    RFX_Text(u"sCurrentGeneration", m_sCurrentGeneration, u"نسل فعلي");
    RFX_Long(u"iStatus", m_iStatus, u"وضعيت");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاريخ ايجاد");
}
