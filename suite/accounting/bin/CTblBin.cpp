// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/CTblBin.h"

using namespace Qt::StringLiterals;

CTblBin::CTblBin(int database)
    : KMySQL(database)
{
}

CTblBin::~CTblBin() = default;

QString CTblBin::GetTableName() const
{
    return u"Bin"_s;
}

void CTblBin::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sTable", m_sTable, u"نوع");
    RFX_Long(u"iRecordID", m_iRecordID, {});
    RFX_Text(u"sTitle", m_sTitle, u"عنوان");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Text(u"sComputer", m_sComputer, u"رایانه");
    RFX_Date(u"date", m_date, u"تاریخ حذف");
}
