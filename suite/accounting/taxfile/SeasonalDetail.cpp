// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/SeasonalDetail.h"

SeasonalDetail::SeasonalDetail(KAccessDatabase *database, const QString &role)
    : KRecordset(database, role)
{
    bind(u"guid", &m_sGuid);
    bind(u"goodsKind", &m_iGoodsKind);
    bind(u"description", &m_sDescription);
    bind(u"sequence", &m_iSequence);
    bind(u"returned", &m_bReturned);
    bind(u"amount", &m_sAmount);
    bind(u"tax", &m_sTax);
    bind(u"duties", &m_sDuties);
    bind(u"discount", &m_sDiscount);
    bind(u"personKind", &m_iPersonKind);
    bind(u"postalCode", &m_sPostalCode);
    bind(u"areaCode", &m_sAreaCode);
    bind(u"telephone", &m_sTel);
    bind(u"address", &m_sAddress);
    bind(u"firstName", &m_sName);
    bind(u"familyName", &m_sFamily);
    bind(u"economicNumber", &m_sEconomicCode);
    bind(u"nationalCode", &m_sNationalCode);
    bind(u"partyKind", &m_iPartyKind);
    bind(u"provinceCode", &m_iProvinceCode);
    bind(u"cityCode", &m_iCityCode);
    bind(u"contractCode", &m_sContractCode);
    bind(u"contractDate", &m_sContractDate);
    bind(u"documentDate", &m_sDocumentDate);
}
