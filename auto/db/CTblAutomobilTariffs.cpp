// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilTariffs.h"

using namespace Qt::StringLiterals;

CTblAutomobilTariffs::CTblAutomobilTariffs(int database)
    : KMySQL(database)
{
}

CTblAutomobilTariffs::~CTblAutomobilTariffs() = default;

QString CTblAutomobilTariffs::GetTableName() const
{
    return u"AutomobilTariffs"_s;
}

void CTblAutomobilTariffs::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاريخ ايجاد");
    RFX_Text(u"sDesc", m_sDesc, u"توضيحات");
    RFX_Text(u"sTitle", m_sTitle, u"عنوان");
    RFX_Double(u"dAmount", m_dAmount, u"هزينه");
    RFX_Long(u"iStatus", m_iStatus, u"");
}
