// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/CTblSavedFilters.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

CTblSavedFilters::CTblSavedFilters(int database)
    : KMySQL(database)
{
}

CTblSavedFilters::~CTblSavedFilters() = default;

QString CTblSavedFilters::GetTableName() const
{
    return u"SavedFilters"_s;
}

void CTblSavedFilters::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sList", m_sList, u"فهرست");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
    namesFrom(u"iUserID", u"Users", u"iID", u"sUser");
    RFX_Text(u"sFilter", m_sFilter, u"شرط‌ها");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

QList<CTblSavedFilters::Entry> CTblSavedFilters::entries(const QString &list, qint32 userID)
{
    CTblSavedFilters set;
    set.m_filter = KSql::formatted("sList=%1 AND iUserID IN (0,%2)", KSql::quoted(list), userID);
    set.m_sort = "iUserID DESC,sName";
    QList<Entry> entries;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        entries.append({set.m_iID, set.m_sName, set.m_iUserID, set.m_sFilter});
    return entries;
}

void CTblSavedFilters::begin(const QString &list, const Entry &entry)
{
    m_sList = list;
    m_sName = entry.name;
    m_iUserID = entry.userID;
    m_sFilter = entry.filter;
    if (entry.key == 0)
        m_dateCreate = GetDBSetting()->GetDBServerDate();
}

void CTblSavedFilters::settle(qint32 key) const
{
    if (m_sName.isEmpty())
        throw FieldRefused(u"لطفا نام فیلتر را وارد نمایید."_s, u"sName"_s);
    if (m_sName.size() > longestName)
        throw FieldRefused(u"نام فیلتر بیش از %1 حرف است."_s.arg(longestName), u"sName"_s);
    CTblTemp others(database());
    others.ExecuteQuery(KSql::formatted("SELECT iID FROM SavedFilters WHERE sList=%1 AND iUserID=%2 AND sName=%3 AND iID<>%4", KSql::quoted(m_sList),
                                        m_iUserID, KSql::quoted(m_sName), key));
    if (others.HasResultRow())
        throw FieldRefused(u"%1 فیلتری با این نام ذخیره کرده است. لطفا نام دیگری وارد نمایید."_s.arg(
                               RowChanged::lastChange(GetTableName(), others.GetLongFieldValue(0), database())),
                           u"sName"_s);
}
