// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CTblDocs.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/AccountCode.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/totals/AccountTotals.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool isAmount(double value)
{
    return std::isfinite(value) && value >= 0;
}

bool mayStand(const CTblDocs &row)
{
    return row.m_iDocNum > 0 && row.m_iFiscalYear > 0 && isAmount(row.m_dBed) && isAmount(row.m_dBes)
        && (row.m_dBed == 0 || row.m_dBes == 0) && row.m_iHesabMoeenCode > 0
        && Accounts::kolOf(row.m_iHesabMoeenCode) == row.m_iHesabKolCode;
}

AccountBalance balanceOf(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database)
{
    return AccountTotals::read(level, from, to, KSql::formatted("%1=%2", KSql::name(AccountChart::docsColumn(level)), code), database).value(code);
}

}

CTblDocs::CTblDocs(int database)
    : KMySQL(database)
{
}

CTblDocs::~CTblDocs() = default;

QString CTblDocs::GetTableName() const
{
    return u"Docs"_s;
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

void CTblDocs::setRow(int docNum, int fiscalYear, const DocumentRow &row)
{
    const bool isDetail = AccountCode::levelOf(row.account) == AccountLevel::Tafsily;
    m_iDocNum = docNum;
    m_iFiscalYear = fiscalYear;
    m_iHesabMoeenCode = isDetail ? AccountCode::parentOf(row.account) : row.account;
    m_iHesabKolCode = AccountCode::parentOf(m_iHesabMoeenCode);
    m_iHesabTafsilyCode = isDetail ? row.account : 0;
    m_iPersonID = row.personID;
    m_dBed = row.debit;
    m_dBes = row.credit;
    m_sDesc = row.description;
    if (!mayStand(*this))
        throw KAccountingError(u"ردیف سند حسابداری درست نیست و سند ثبت نشد."_s);
}

void CTblDocs::AddRecords(int docNum, int fiscalYear, const QList<DocumentRow> &rows, int database)
{
    CTblDocs set(database);
    set.AddRows(rows.size(), [&](qsizetype index) { set.setRow(docNum, fiscalYear, rows.at(index)); });
}

AccountBalance CTblDocs::GetBedBesHesabKol1(int kolCode, const QDateTime &from, const QDateTime &to, int database)
{
    return balanceOf(AccountLevel::Kol, kolCode, from, to, database);
}

AccountBalance CTblDocs::GetBedBesHesabMoeen1(int moeenCode, const QDateTime &from, const QDateTime &to, int database)
{
    return balanceOf(AccountLevel::Moeen, moeenCode, from, to, database);
}

AccountBalance CTblDocs::GetBedBes2(int tafsilyCode, const QDateTime &from, const QDateTime &to, int database)
{
    return balanceOf(AccountLevel::Tafsily, tafsilyCode, from, to, database);
}

QHash<int, AccountBalance> CTblDocs::balances(AccountLevel level, const QDateTime &from, const QDateTime &to, int group,
                                              int database)
{
    constexpr int accountsOfGroup = 100;
    const int first = group * accountsOfGroup;
    const KSql condition = group > 0 ? KSql::formatted("iHesabKolCode BETWEEN %1 AND %2", first, first + accountsOfGroup - 1) : KSql();
    return AccountTotals::read(level, from, to, condition, database);
}
