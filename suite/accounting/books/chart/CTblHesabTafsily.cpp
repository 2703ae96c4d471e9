// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/CTblHesabTafsily.h"

using namespace Qt::StringLiterals;

CTblHesabTafsily::CTblHesabTafsily(int database)
    : KMySQL(database)
{
}

CTblHesabTafsily::~CTblHesabTafsily() = default;

QString CTblHesabTafsily::GetTableName() const
{
    return u"HesabTafsily"_s;
}

void CTblHesabTafsily::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCode", m_iCode, u"کد تفصیلی");
    RFX_Text(u"sName", m_sName, u"نام حساب");
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Long(u"iHesabMoeenCode", m_iHesabMoeenCode, u"کد معین", u"HesabMoeen", u"iCode", u"sName");
}
