// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/CTblHesabMoeen.h"

using namespace Qt::StringLiterals;

CTblHesabMoeen::CTblHesabMoeen(int database)
    : KMySQL(database)
{
}

CTblHesabMoeen::~CTblHesabMoeen() = default;

QString CTblHesabMoeen::GetTableName() const
{
    return u"HesabMoeen"_s;
}

void CTblHesabMoeen::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCode", m_iCode, u"کد معین");
    RFX_Text(u"sName", m_sName, u"نام حساب");
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Long(u"iHesabKolCode", m_iHesabKolCode, u"کد کل", u"HesabKol", u"iCode", u"sName");
}
