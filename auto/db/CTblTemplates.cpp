// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblTemplates.h"

using namespace Qt::StringLiterals;

CTblTemplates::CTblTemplates(int database)
    : KMySQL(database)
{
}

CTblTemplates::~CTblTemplates() = default;

QString CTblTemplates::GetTableName() const
{
    return u"Templates"_s;
}

void CTblTemplates::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Text(u"sKind", m_sKind, u"نوع");
    RFX_Text(u"sName", m_sName, u"نام فایل");
    RFX_LongBlob(u"oFile", m_oFile, u"فایل");
    RFX_Text(u"sHash", m_sHash, u"");
    RFX_Bool(u"bInUse", m_bInUse, u"در حال استفاده");
    RFX_Text(u"sDesc", m_sDesc, u"از کجا");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}
