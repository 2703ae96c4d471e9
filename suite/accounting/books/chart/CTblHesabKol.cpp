// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/CTblHesabKol.h"

using namespace Qt::StringLiterals;

CTblHesabKol::CTblHesabKol(int database)
    : KMySQL(database)
{
}

CTblHesabKol::~CTblHesabKol() = default;

QString CTblHesabKol::GetTableName() const
{
    return u"HesabKol"_s;
}

void CTblHesabKol::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCode", m_iCode, u"کد کل");
    RFX_Text(u"sName", m_sName, u"نام حساب");
    RFX_Long(u"iStatus", m_iStatus, u"");
}
