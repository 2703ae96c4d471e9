// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/taxfile/KRecordset.h"

#include <array>

// The dealership's own details in the tax file: one record.
class TZACCOUNTINGDATA_EXPORT CMoshakhasat final : public KRecordset
{
public:
    explicit CMoshakhasat(KAccessDatabase *database);

    // With the record set open: fills the table's one record, or a new one, with the dealership's details as the suite stores
    // them (Properties, section "Company"), and saves it. A detail that was never stored is written as an empty text.
    // Also throws CMySQLException.
    void FillFromProperties(int database = 0);

    Text m_sName1;
    Text m_sName2;
    Number m_iKind; // 1 natural, 2 legal person
    Text m_sNationalCode;
    Text m_sEconomicCode;
    Text m_sRegistrationNumber;
    Text m_sManager;
    Text m_sTel;
    Text m_sMobile;
    Text m_sProvince;
    Text m_sCity;
    Text m_sAddress;
    Text m_sPostalCode;

private:
    struct Part
    {
        const char16_t *key; // in Properties, and of the mapping's value
        Text CMoshakhasat::*text;
    };
    static const std::array<Part, 12> parts;
};
