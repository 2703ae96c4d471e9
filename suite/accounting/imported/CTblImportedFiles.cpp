// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/imported/CTblImportedFiles.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype rowsAtOnce = 1000; // of one statement

}

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
    RFX_Long(u"iTakenBack", m_iTakenBack, u"ردیف‌های برگردانده شده");
    RFX_Long(u"iReturnUserID", m_iReturnUserID, u"برگرداننده");
    namesFrom(u"iReturnUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateReturn", m_dateReturn, u"تاریخ برگرداندن");
}

std::optional<CTblImportedFiles::Entry> CTblImportedFiles::last(const QString &kind, const QString &hash, int database)
{
    CTblImportedFiles set(database);
    set.m_filter = KSql::formatted("sKind=%1 AND sHash=%2 AND dateReturn IS NULL", KSql::quoted(kind), KSql::quoted(hash));
    set.m_sort = "iID DESC";
    set.SetLimit(1);
    set.Open(true, true, true);
    if (set.IsEOF())
        return std::nullopt;
    return set.entry();
}

QList<CTblImportedFiles::Entry> CTblImportedFiles::entries(const QString &kind, int database)
{
    CTblImportedFiles set(database);
    set.m_filter = KSql::formatted("sKind=%1", KSql::quoted(kind));
    set.m_sort = "iID DESC";
    QList<Entry> entries;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        entries.append(set.entry());
    return entries;
}

void CTblImportedFiles::note(const QString &kind, const QString &hash, const QString &file, int rows, const QList<qint32> &records, int database)
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
    CTblTemp statement(database);
    for (qsizetype from = 0; from < records.size(); from += rowsAtOnce) {
        QList<KSql> values;
        for (const qint32 key : records.mid(from, rowsAtOnce))
            values.append(KSql::formatted("(%1,%2)", record.m_iID, key));
        statement.ExecuteQuery("INSERT INTO ImportedRows(iFileID,iRecordID) VALUES" + KSql::joined(values, ","));
    }
}

void CTblImportedFiles::noteReturn(int records)
{
    Edit();
    m_iTakenBack += records;
    m_iReturnUserID = GetDBSetting()->GetUserID();
    m_dateReturn = GetDBSetting()->GetDBServerDate();
    Update(true);
}
