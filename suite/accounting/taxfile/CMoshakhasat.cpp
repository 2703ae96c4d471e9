// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/CMoshakhasat.h"

#include "suite/accounting/office/CTblProperties.h"

using namespace Qt::StringLiterals;

const std::array<CMoshakhasat::Part, 12> CMoshakhasat::parts{{
    {u"name1", &CMoshakhasat::m_sName1},
    {u"name2", &CMoshakhasat::m_sName2},
    {u"nationalCode", &CMoshakhasat::m_sNationalCode},
    {u"economicCode", &CMoshakhasat::m_sEconomicCode},
    {u"registrationNumber", &CMoshakhasat::m_sRegistrationNumber},
    {u"manager", &CMoshakhasat::m_sManager},
    {u"telephone", &CMoshakhasat::m_sTel},
    {u"mobile", &CMoshakhasat::m_sMobile},
    {u"province", &CMoshakhasat::m_sProvince},
    {u"city", &CMoshakhasat::m_sCity},
    {u"address", &CMoshakhasat::m_sAddress},
    {u"postalCode", &CMoshakhasat::m_sPostalCode},
}};

CMoshakhasat::CMoshakhasat(KAccessDatabase *database)
    : KRecordset(database, u"Moshakhasat"_s)
{
    bind(u"kind", &m_iKind);
    for (const Part &part : parts)
        bind(part.key, &(this->*part.text));
}

void CMoshakhasat::FillFromProperties(int database)
{
    const QHash<QString, QString> stored = CTblProperties::DBReadSection(u"Company"_s, database);
    Edit();
    // An office that never said otherwise is one person's, as where the details are entered.
    m_iKind = stored.value(u"kind"_s, u"1"_s).toInt();
    for (const Part &part : parts)
        this->*part.text = stored.value(QString::fromUtf16(part.key), u""_s);
    Update();
}
