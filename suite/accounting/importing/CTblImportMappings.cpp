// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/CTblImportMappings.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

CTblImportMappings::CTblImportMappings(int database)
    : KMySQL(database)
{
}

CTblImportMappings::~CTblImportMappings() = default;

QString CTblImportMappings::GetTableName() const
{
    return u"ImportMappings"_s;
}

void CTblImportMappings::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sKind", m_sKind, u"فهرست");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Text(u"sMapping", m_sMapping, u"ستون‌ها");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
    namesFrom(u"iUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

QList<CTblImportMappings::Entry> CTblImportMappings::entries(const QString &kind, int database)
{
    CTblImportMappings set(database);
    set.m_filter = "sKind=" + KSql::quoted(kind);
    set.m_sort = "sName";
    QList<Entry> entries;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        entries.append({set.m_iID, set.m_sName, set.m_sMapping});
    return entries;
}

void CTblImportMappings::keep(const QString &kind, const QString &name, const QString &mapping, int database)
{
    const QString standard = ConvertToStandard(name);
    if (standard.isEmpty())
        throw FieldRefused(u"لطفا نام ستون‌ها را وارد نمایید."_s, u"sName"_s);
    if (standard.size() > longestName)
        throw FieldRefused(u"نام ستون‌ها بیش از %1 حرف است."_s.arg(longestName), u"sName"_s);
    KTransaction::runReplayable(
        [&] {
            NamedLock::take(u"ImportMappings"_s, database);
            OfficeClosing::requireOpen(database);
            CTblImportMappings record(database);
            record.m_filter = KSql::formatted("sKind=%1 AND sName=%2", KSql::quoted(kind), KSql::quoted(standard));
            record.Open(true, true, true);
            const bool isThere = !record.IsEOF();
            isThere ? record.Edit() : record.AddNew();
            record.m_sKind = kind;
            record.m_sName = standard;
            record.m_sMapping = mapping;
            record.m_iUserID = GetDBSetting()->GetUserID();
            record.m_dateCreate = isThere ? record.m_dateCreate : GetDBSetting()->GetDBServerDate();
            record.Update(true);
        },
        database);
}
