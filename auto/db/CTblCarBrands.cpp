// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblCarBrands.h"

#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "auto/db/DeletedRows.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"

using namespace Qt::StringLiterals;

CTblCarBrands::CTblCarBrands(int database)
    : KMySQL(database)
{
}

CTblCarBrands::~CTblCarBrands() = default;

QString CTblCarBrands::GetTableName() const
{
    return u"CarBrands"_s;
}

bool CTblCarBrands::Delete()
{
    requireRow("Delete");
    KTransaction transaction(database());
    // A model without classes is none of the statement's rows.
    const KSql ofBrand = KSql::formatted(" FROM CarModels cm JOIN CarClasses cc ON cc.iBrandID=cm.iID WHERE cm.iClassID=%1", m_iID);
    DeletedRows::note<CTblCarModels>("SELECT cm.iID" + ofBrand, database());
    DeletedRows::note<CTblCarClasses>("SELECT cc.iID" + ofBrand, database());
    CTblTemp statement(database());
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE cm, cb, cc FROM CarModels cm INNER JOIN CarBrands cb INNER JOIN CarClasses cc "
                                    "WHERE cc.iBrandID=cm.iID AND cb.iID=cm.iClassID AND cm.iClassID=%d",
                                    m_iID);
    const bool deleted = KMySQL::Delete();
    transaction.commit();
    return deleted;
}

void CTblCarBrands::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sNameEnglish", m_sNameEnglish, u"نام انگليسي");
    RFX_Long(u"iCompanyID", m_iCompanyID, {});
    RFX_Text(u"sWebName", m_sWebName, u"نام در وب");
    RFX_Text(u"sCountry", m_sCountry, u"کشور");
    RFX_Text(u"sFounders", m_sFounders, u"بنيان گذار");
    RFX_Text(u"sCeo", m_sCeo, u"مدير عامل");
    RFX_Text(u"sCentralOffice", m_sCentralOffice, u"دفتر مرکزي");
    RFX_Long(u"iYearFrom", m_iYearFrom, u"سال تاسيس");
    RFX_Long(u"iYearTo", m_iYearTo, u"سال خاتمه");
    RFX_Text(u"sWebSite", m_sWebSite, u"وب سايت");
    RFX_Text(u"sLogoFile", m_sLogoFile, u"نام فايل لوگو");
    RFX_Long(u"iGrade", m_iGrade, u"رتبه");
    RFX_Bool(u"bShowInHomePage", m_bShowInHomePage, u"نمايش در خانه");
    RFX_Long(u"iWebOrder", m_iWebOrder, u"ترتيب نمايش در خانه");
    RFX_Long(u"iStatus", m_iStatus, u"وضعيت");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاريخ ايجاد");
}
