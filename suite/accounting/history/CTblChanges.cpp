// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/CTblChanges.h"

using namespace Qt::StringLiterals;

CTblChanges::CTblChanges(int database)
    : KMySQL(database)
{
}

CTblChanges::~CTblChanges() = default;

QString CTblChanges::GetTableName() const
{
    return u"Changes"_s;
}

void CTblChanges::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Text(u"sTable", m_sTable, u"نوع رکورد");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iKind", m_iKind, u"تغییر");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Text(u"sComputer", m_sComputer, u"رایانه");
    RFX_Date(u"date", m_date, u"تاریخ");
    RFX_Text(u"sValues", m_sValues, u"");
}
