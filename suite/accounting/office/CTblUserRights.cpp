// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblUserRights.h"

using namespace Qt::StringLiterals;

CTblUserRights::CTblUserRights(int database)
    : KMySQL(database)
{
}

CTblUserRights::~CTblUserRights() = default;

QString CTblUserRights::GetTableName() const
{
    return u"UserRights"_s;
}

void CTblUserRights::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Text(u"sForm", m_sForm, u"فرم");
    RFX_Long(u"iRights", m_iRights, u"دسترسی");
}
