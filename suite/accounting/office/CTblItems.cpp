// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblItems.h"

using namespace Qt::StringLiterals;

CTblItems::CTblItems(int database)
    : KMySQL(database)
{
}

CTblItems::~CTblItems() = default;

QString CTblItems::GetTableName() const
{
    return u"Items"_s;
}

void CTblItems::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iType", m_iType, u"نوع");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sTitle", m_sTitle, u"عنوان");
    RFX_Long(u"iStatus", m_iStatus, u"");
}
