// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/taxfile/KRecordset.h"

// One line of a season's return in the tax file: a counter-party's transaction, or a sum of small ones. The texts of numbers
// are plain: no grouping, ASCII digits.
class TZACCOUNTINGDATA_EXPORT SeasonalDetail : public KRecordset
{
public:
    Text m_sGuid; // of the head record that this line belongs to
    Number m_iGoodsKind;
    Text m_sDescription;
    Number m_iSequence; // 0 to 1,000,000,000
    Flag m_bReturned;
    Text m_sAmount;
    Text m_sTax;
    Text m_sDuties;
    Text m_sDiscount;
    Number m_iPersonKind; // 1 natural, 2 legal person
    Text m_sPostalCode;
    Text m_sAreaCode;
    Text m_sTel;
    Text m_sAddress;
    Text m_sName;
    Text m_sFamily;
    Text m_sEconomicCode;
    Text m_sNationalCode;
    Number m_iPartyKind; // 5 to 8, 0 unknown
    Number m_iProvinceCode;
    Number m_iCityCode;
    Text m_sContractCode;
    Text m_sContractDate; // Shamsi, as shown
    Text m_sDocumentDate;

protected:
    SeasonalDetail(KAccessDatabase *database, const QString &role);
};
