// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblPublicCars.h"

#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

CTblPublicCars::CTblPublicCars(int database)
    : KMySQL(database)
{
}

CTblPublicCars::~CTblPublicCars() = default;

QString CTblPublicCars::GetTableName() const
{
    return u"PublicCars"_s;
}

void CTblPublicCars::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iCarID", m_iCarID, u"کد خودرو", u"AutomobilInformations", u"iID", u"iCode");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ");
}

void CTblPublicCars::deleteOf(qint32 carID, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM PublicCars WHERE iCarID=%d", carID);
}
