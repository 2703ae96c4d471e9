// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CTblPersons.h"

#include "suite/accounting/office/CodeReservation.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

int findOther(const KSql &condition, int exceptID, int database)
{
    CTblTemp temp(database);
    temp.ExecuteQuery(KSql::formatted("SELECT iID FROM Persons WHERE %1 AND iID<>%2 ORDER BY iID LIMIT 1", condition, exceptID));
    return temp.GetLongFieldValue(0);
}

}

CTblPersons::CTblPersons(int database)
    : KMySQL(database)
{
}

CTblPersons::~CTblPersons() = default;

QString CTblPersons::GetTableName() const
{
    return u"Persons"_s;
}

void CTblPersons::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCode", m_iCode, u"کد شخص");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sFamily", m_sFamily, u"نام خانوادگی");
    RFX_Text(u"sName2", m_sName2, u"نام و نام خانوادگی");
    RFX_Long(u"iSex", m_iSex, u"جنسیت");
    RFX_Text(u"sFatherName", m_sFatherName, u"نام پدر");
    RFX_Date(u"dateBirth", m_dateBirth, u"تاریخ تولد");
    RFX_Text(u"sBirthCity", m_sBirthCity, u"محل تولد");
    RFX_Text(u"sIdentityNum", m_sIdentityNum, u"شماره شناسنامه");
    RFX_Text(u"sIdentityCity", m_sIdentityCity, u"محل صدور");
    RFX_Text(u"sNationalCode", m_sNationalCode, u"کد ملی");
    RFX_Text(u"sEconomicCode", m_sEconomicCode, u"کد اقتصادی");
    RFX_Text(u"sPostalCode", m_sPostalCode, u"کد پستی");
    RFX_Text(u"sAreaCode", m_sAreaCode, u"کد شهر تلفن");
    RFX_Text(u"sTel", m_sTel, u"تلفن");
    RFX_Text(u"sMobile", m_sMobile, u"موبایل");
    RFX_Text(u"sAddress", m_sAddress, u"آدرس");
    RFX_Long(u"iKind", m_iKind, u"نوع شخص");
    RFX_Bool(u"bNatural", m_bNatural, u"حقیقی");
    RFX_Long(u"iTaxKind", m_iTaxKind, u"کد نوع مودی");
    RFX_Long(u"iTaxZone", m_iTaxZone, u"حوزه مالیاتی");
    RFX_Long(u"iProvinceCode", m_iProvinceCode, u"کد استان");
    RFX_Long(u"iCityCode", m_iCityCode, u"کد شهر");
    RFX_Double(u"dPercentDiscount", m_dPercentDiscount, u"درصد تخفیف");
    RFX_Long(u"iStatus", m_iStatus, u"وضعیت");
}

void CTblPersons::AddNew()
{
    KMySQL::AddNew();
    m_bNatural = 1;
}

bool CTblPersons::Update(bool bThrow)
{
    standardize();
    return KMySQL::Update(bThrow);
}

void CTblPersons::standardize()
{
    for (const Column &column : columns()) {
        if (auto *const *text = std::get_if<QString *>(&column.member))
            **text = ConvertToStandard(**text);
    }
    if (const QString composed = displayName(m_sName, m_sFamily); !composed.isEmpty())
        m_sName2 = composed;
}

int CTblPersons::nextCode(int database)
{
    return CodeReservation::next(u"Persons"_s, database);
}

QString CTblPersons::displayName(const QString &name, const QString &family)
{
    return ConvertToStandard(name + u' ' + family);
}

int CTblPersons::findByCode(int code, int exceptID, int database)
{
    return findOther(KSql::formatted("iCode=%1", code), exceptID, database);
}

int CTblPersons::findByNationalCode(const QString &code, int exceptID, int database)
{
    const QString standard = ConvertToStandard(code);
    if (standard.isEmpty())
        return 0;
    return findOther("sNationalCode=" + KSql::quoted(standard), exceptID, database);
}
