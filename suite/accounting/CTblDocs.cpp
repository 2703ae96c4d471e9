// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/CTblDocs.h"

#include "suite/accounting/Accounts.h"
#include "suite/accounting/KAccountingError.h"

#include <cmath>

namespace {

bool isAmount(double value)
{
    return std::isfinite(value) && value >= 0;
}

bool mayStand(const DocRow &row)
{
    return row.docNum > 0 && row.fiscalYear > 0 && isAmount(row.bed) && isAmount(row.bes) && (row.bed == 0 || row.bes == 0)
        && row.hesabMoeen > 0 && Accounts::kolOf(row.hesabMoeen) == row.hesabKol;
}

}

CTblDocs::CTblDocs(int database)
    : KMySQL(database)
{
}

CTblDocs::~CTblDocs() = default;

QString CTblDocs::GetTableName() const
{
    return QStringLiteral("Docs");
}

void CTblDocs::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iDocNum", m_iDocNum, u"شماره سند", u"Documents", u"iNum", u"iNum");
    RFX_Long(u"iFiscalYear", m_iFiscalYear, u"سال مالی");
    RFX_Long(u"iHesabKolCode", m_iHesabKolCode, u"کد کل", u"HesabKol", u"iCode", u"sName");
    RFX_Long(u"iHesabMoeenCode", m_iHesabMoeenCode, u"کد معین", u"HesabMoeen", u"iCode", u"sName");
    RFX_Long(u"iHesabTafsilyCode", m_iHesabTafsilyCode, u"کد تفصیلی", u"HesabTafsily", u"iCode", u"sName");
    RFX_Long(u"iPersonID", m_iPersonID, u"طرف حساب", u"Persons", u"iID", u"sName2");
    RFX_Double(u"dBed", m_dBed, u"بدهکار");
    RFX_Double(u"dBes", m_dBes, u"بستانکار");
    RFX_Text(u"sDesc", m_sDesc, u"شرح");
}

int CTblDocs::AddRecord(const DocRow &row, int database)
{
    if (!mayStand(row))
        throw KAccountingError(QStringLiteral("ردیف سند حسابداری درست نیست و سند ثبت نشد."));
    CTblDocs set(database);
    set.AddNew();
    set.m_iDocNum = row.docNum;
    set.m_iFiscalYear = row.fiscalYear;
    set.m_iHesabKolCode = row.hesabKol;
    set.m_iHesabMoeenCode = row.hesabMoeen;
    set.m_iHesabTafsilyCode = row.hesabTafsily;
    set.m_iPersonID = row.personID;
    set.m_dBed = row.bed;
    set.m_dBes = row.bes;
    set.m_sDesc = row.desc;
    set.Update(true);
    return static_cast<int>(set.GetLastInsertedID());
}
