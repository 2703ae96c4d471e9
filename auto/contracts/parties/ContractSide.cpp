// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/parties/ContractSide.h"

using namespace Qt::StringLiterals;

const ContractSide &ContractSide::of(int side)
{
    using C = CTblAutomobilContracts;
    static const ContractSide first{seller, &C::m_iPersonFirstID, &C::m_iPersonContract1, &C::m_sName1, &C::m_sNationalId1, &C::m_sMobile1,
                                    &C::m_sTel1, &C::m_sAddress1, &C::m_dDiscountFirst, &C::m_dTax, &C::m_dImposition, &C::m_dPayFirst};
    static const ContractSide second{buyer, &C::m_iPersonSecondID, &C::m_iPersonContract2, &C::m_sName2, &C::m_sNationalId2, &C::m_sMobile2,
                                     &C::m_sTel2, &C::m_sAddress2, &C::m_dDiscountSecond, &C::m_dTax2, &C::m_dImposition2, &C::m_dPaySecond};
    return side == seller ? first : second;
}

QString ContractSide::nameOf(int side)
{
    return side == seller ? u"فروشنده"_s : u"خریدار"_s;
}
