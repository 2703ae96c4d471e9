// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/CTblImportedFiles.h"

#include "suite/accounting/office/CDBSetting.h"

using namespace Qt::StringLiterals;

CTblImportedFiles::CTblImportedFiles(int database)
    : KMySQL(database)
{
}

CTblImportedFiles::~CTblImportedFiles() = default;

QString CTblImportedFiles::GetTableName() const
{
    return u"ImportedFiles"_s;
}

void CTblImportedFiles::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Text(u"sKind", m_sKind, u"فهرست");
    RFX_Text(u"sHash", m_sHash, {});
    RFX_Text(u"sFile", m_sFile, u"فایل");
    RFX_Long(u"iRows", m_iRows, u"تعداد ردیف‌ها");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر");
    namesFrom(u"iUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

std::optional<CTblImportedFiles::Entry> CTblImportedFiles::last(const QString &kind, const QString &hash, int database)
{
    CTblImportedFiles set(database);
    set.m_filter = KSql::formatted("sKind=%1 AND sHash=%2", KSql::quoted(kind), KSql::quoted(hash));
    set.m_sort = "iID DESC";
    set.SetLimit(1);
    set.Open(true, true, true);
    if (set.IsEOF())
        return std::nullopt;
    return Entry{set.m_sFile, set.m_iRows, set.m_dateCreate, set.m_iUserID};
}

void CTblImportedFiles::note(const QString &kind, const QString &hash, const QString &file, int rows, int database)
{
    CTblImportedFiles record(database);
    record.Open(true, false, true);
    record.AddNew();
    record.m_sKind = kind;
    record.m_sHash = hash;
    record.m_sFile = file.left(record.textLength(u"sFile"));
    record.m_iRows = rows;
    record.m_iUserID = GetDBSetting()->GetUserID();
    record.m_dateCreate = GetDBSetting()->GetDBServerDate();
    record.Update(true);
}
