// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblMultiItems.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

// A name in its stored form that the type does not have yet; exceptID: the value that may keep its own name.
QString requiredNewName(int itemType, const QString &name, int exceptID, int database)
{
    const QString standard = ConvertToStandard(name);
    if (standard.isEmpty())
        throw KAccountingError(u"لطفا نام را وارد نماید."_s);
    CTblItems set(database);
    set.SetColumns({u"iID"_s});
    set.m_filter =
        KSql::formatted("iType=%1 AND iID<>%2 AND sName=%3", itemType, exceptID, KSql::quoted(standard));
    set.Open(true, true, true);
    if (!set.IsEOF())
        throw KAccountingError(u"این نام قبلا ثبت شده است."_s);
    return standard;
}

}

CTblMultiItems::CTblMultiItems(int itemType, int database)
    : CTblItems(database)
{
    m_filter = KSql::formatted("iType=%1 AND iStatus=0", itemType);
    m_sort = "sName,iID";
}

CTblMultiItems::~CTblMultiItems() = default;

QList<CTblMultiItems::Value> CTblMultiItems::values(int itemType, int database)
{
    CTblMultiItems set(itemType, database);
    QList<Value> found;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        found.append({set.m_iID, set.m_sName});
    return found;
}

void CTblMultiItems::expectValues(int itemType, int database)
{
    CTblMultiItems(itemType, database).expectOpen();
}

int CTblMultiItems::addValue(int itemType, const QString &name, int database)
{
    const QString standard = requiredNewName(itemType, name, 0, database);
    CTblItems set(database);
    set.AddNew();
    set.m_iType = itemType;
    set.m_sName = standard;
    set.Update(true);
    return static_cast<int>(set.GetLastInsertedID());
}

void CTblMultiItems::renameValue(int id, const QString &name, int database)
{
    CTblItems set(database);
    if (!set.IsRecordExist(u"iID"_s, id))
        return;
    const QString standard = requiredNewName(set.m_iType, name, id, database);
    set.Edit();
    set.m_sName = standard;
    set.Update(true);
}

void CTblMultiItems::deleteValue(int id, int database)
{
    CTblItems set(database);
    if (set.IsRecordExist(u"iID"_s, id))
        set.Delete();
}
