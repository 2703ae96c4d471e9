// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CTblDocs.h"

#include "suite/db/CTblTemp.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/ShamsiDate.h"

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

QString validRows(const QDateTime &from, const QDateTime &to)
{
    QString clauses = QStringLiteral(" FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear "
                                     "WHERE h.iStatus=0");
    if (from.isValid())
        clauses += QStringLiteral(" AND h.date>=") + DateToSQL(from);
    if (to.isValid())
        clauses += QStringLiteral(" AND h.date<") + DateToSQL(to.addDays(1));
    return clauses;
}

AccountBalance balanceOf(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(QStringLiteral("SELECT SUM(d.dBed),SUM(d.dBes)") + validRows(from, to)
                       + QStringLiteral(" AND d.%1=%2").arg(AccountChart::docsColumn(level)).arg(code));
    return {query.GetDoubleFieldValue(0), query.GetDoubleFieldValue(1)};
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
    const QString code = QStringLiteral("d.") + AccountChart::docsColumn(level);
    QString clauses = validRows(from, to) + QStringLiteral(" AND %1>0").arg(code);
    if (group > 0)
        clauses += QStringLiteral(" AND d.iHesabKolCode BETWEEN %1 AND %2")
                       .arg(group * accountsOfGroup)
                       .arg(group * accountsOfGroup + accountsOfGroup - 1);
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(QStringLiteral("SELECT %1,SUM(d.dBed),SUM(d.dBes)").arg(code) + clauses
                       + QStringLiteral(" GROUP BY ") + code);
    QHash<int, AccountBalance> sums;
    for (; query.HasResultRow(); query.MoveNextResult())
        sums.insert(query.GetLongFieldValue(0), {query.GetDoubleFieldValue(1), query.GetDoubleFieldValue(2)});
    return sums;
}
