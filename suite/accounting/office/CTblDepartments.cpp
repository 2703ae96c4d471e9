// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblDepartments.h"

using namespace Qt::StringLiterals;

CTblDepartments::CTblDepartments(int database)
    : KMySQL(database)
{
}

CTblDepartments::~CTblDepartments() = default;

QString CTblDepartments::GetTableName() const
{
    return u"Departments"_s;
}

void CTblDepartments::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Text(u"sName", m_sName, u"شعبه");
}
