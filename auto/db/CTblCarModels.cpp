// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblCarModels.h"

#include "auto/db/CTblCarClasses.h"
#include "auto/db/DeletedRows.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"

using namespace Qt::StringLiterals;

CTblCarModels::CTblCarModels(int database)
    : KMySQL(database)
{
}

CTblCarModels::~CTblCarModels() = default;

QString CTblCarModels::GetTableName() const
{
    return u"CarModels"_s;
}

bool CTblCarModels::Delete()
{
    requireRow("Delete");
    KTransaction transaction(database());
    DeletedRows::note<CTblCarClasses>(KSql::formatted("SELECT iID FROM CarClasses WHERE iBrandID=%1", m_iID), database());
    CTblTemp statement(database());
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE cm, cc FROM CarModels cm INNER JOIN CarClasses cc\tWHERE cc.iBrandID=cm.iID "
                                    "AND cc.iBrandID=%d",
                                    m_iID);
    const bool deleted = KMySQL::Delete();
    transaction.commit();
    return deleted;
}

void CTblCarModels::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Long(u"iClassID", m_iClassID, u"کلاس");
    namesFrom(u"iClassID", u"CarBrands", u"iID", u"sName");
    RFX_Long(u"iYearFrom", m_iYearFrom, u"سال شروع");
    RFX_Long(u"iYearTo", m_iYearTo, u"سال خاتمه");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاريخ ايجاد");
    RFX_Long(u"iStatus", m_iStatus, u"وضعيت");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
}
