// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblFileDocs.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mebibyte = 1024 * 1024;
constexpr int longestFileName = 200;

KSql visibleTo(int userID)
{
    return KSql::formatted("(iScope=%1 OR iUserID=%2)", int(CTblFileDocs::General), userID);
}

// A file of one user alone is nobody else's to read, not even its name. A record that nobody has saved yet may come to nothing.
void noteFile(const CTblFileDocs &file, bool isAdded)
{
    if (Placeholders::contains({RecordSubjects::tableOf(file.m_iTable), file.m_iRecordID}, file.database()))
        return;
    const QString name = file.m_iScope == CTblFileDocs::Personal ? u"فایل شخصی"_s : file.m_sName;
    const KChangedValue value{u"فایل پیوست"_s, isAdded ? QVariant() : QVariant(name), isAdded ? QVariant(name) : QVariant()};
    RecordSubjects::noteOn(file.m_iTable, file.m_iRecordID, file.GetTableName(), {value}, file.database());
}

void requireSize(const QByteArray &data)
{
    if (data.size() > CTblFileDocs::maxFileBytes)
        throw KAccountingError(u"اندازه فایل بیشتر از %1 مگابایت است و اضافه نشد."_s
                                   .arg(CTblFileDocs::maxFileBytes / mebibyte));
    if (data.isEmpty())
        throw KAccountingError(u"فایل انتخاب شده خالی است."_s);
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw KAccountingError(u"فایل انتخاب شده خوانده نشد."_s);
    // One byte more than allowed reveals a file that is too large, also one that has grown since it was chosen.
    QByteArray data = file.read(CTblFileDocs::maxFileBytes + 1);
    requireSize(data);
    if (file.error() != QFileDevice::NoError)
        throw KAccountingError(u"فایل انتخاب شده خوانده نشد."_s);
    return data;
}

// A server takes no statement longer than its limit; asked first, because it answers a longer one by hanging up.
void requireServerTakes(const QByteArray &data, int database)
{
    constexpr qint64 restOfStatement = 4096;
    CTblTemp temp(database);
    temp.ExecuteQuery("SELECT @@max_allowed_packet", true, true);
    const auto limit = static_cast<qint64>(temp.GetDoubleFieldValue(0));
    if (KSql::quoted(data).utf8().size() + restOfStatement > limit)
        throw KAccountingError(
            u"سرور پایگاه داده فایلی به این اندازه را نمی پذیرد (سقف سرور %1 مگابایت است)."_s.arg(limit / mebibyte));
}

bool isReservedName(const QString &baseName)
{
    static const QStringList devices{u"CON"_s, u"PRN"_s, u"AUX"_s,
                                     u"NUL"_s};
    const QString upper = baseName.toUpper();
    const bool numbered = upper.size() == 4 && upper.at(3).isDigit()
        && (upper.startsWith(QLatin1String("COM")) || upper.startsWith(QLatin1String("LPT")));
    return numbered || devices.contains(upper);
}

// Cut in front of the suffix, by which the desktop chooses the program.
QString shortened(const QString &name, int longest)
{
    if (name.size() <= longest)
        return name;
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString suffix = dot > 0 && name.size() - dot <= 20 ? name.mid(dot) : QString();
    QString front = name.left(longest - suffix.size());
    if (front.back().isHighSurrogate())
        front.chop(1);
    return front + suffix;
}

}

CTblFileDocs::CTblFileDocs(int database)
    : KMySQL(database)
{
}

CTblFileDocs::~CTblFileDocs() = default;

QString CTblFileDocs::GetTableName() const
{
    return u"FileDocs"_s;
}

void CTblFileDocs::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Long(u"iScope", m_iScope, u"");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Text(u"sName", m_sName, u"نام فایل");
    RFX_LongBlob(u"oData", m_oData, u"فایل");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاریخ ایجاد");
}

QList<CTblFileDocs::FileInfo> CTblFileDocs::list(int table, int recordID, Scope scope, int userID, int database)
{
    CTblFileDocs set(database);
    set.SetColumns({u"sName"_s, u"dateCreate"_s, u"iUserID"_s});
    set.m_filter = KSql::formatted("iTable=%1 AND iRecordID=%2 AND iScope=%3", table, recordID, int(scope));
    if (scope == Personal)
        set.m_filter += KSql::formatted(" AND iUserID=%1", userID);
    set.m_sort = "iID";
    QList<FileInfo> files;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        files.append({set.m_iID, set.m_sName, set.m_dateCreate, set.m_iUserID});
    return files;
}

int CTblFileDocs::addFile(int table, int recordID, Scope scope, int userID, const QString &path, int database)
{
    GetDBSetting()->RequireOpenDB();
    return addContent(table, recordID, scope, userID, QFileInfo(path).fileName(), readFile(path), database);
}

int CTblFileDocs::addContent(int table, int recordID, Scope scope, int userID, const QString &name, const QByteArray &data, int database)
{
    GetDBSetting()->RequireOpenDB();
    requireSize(data);
    requireServerTakes(data, database);
    CTblFileDocs set(database);
    set.AddNew();
    set.m_iTable = table;
    set.m_iRecordID = recordID;
    set.m_iScope = scope;
    set.m_iUserID = userID;
    set.m_sName = shortened(name, longestFileName);
    set.m_oData.data = data;
    set.m_dateCreate = GetDBSetting()->GetDBServerDate();
    KTransaction transaction(database);
    set.Update(true);
    noteFile(set, true);
    transaction.commit();
    return set.m_iID;
}

bool CTblFileDocs::content(int id, int userID, QString *name, QByteArray *data, int database)
{
    CTblFileDocs set(database);
    if (!set.IsRecordExist(u"iID"_s, id, 0, " AND " + visibleTo(userID)))
        return false;
    *name = set.m_sName;
    *data = set.m_oData.data;
    return true;
}

bool CTblFileDocs::deleteFile(int id, int userID, int database)
{
    CTblFileDocs file(database);
    file.SetColumns({u"iTable"_s, u"iRecordID"_s, u"iScope"_s, u"sName"_s});
    const bool isKnown = file.IsRecordExist(u"iID"_s, id);
    KTransaction transaction(database);
    CTblTemp temp(database);
    temp.Open(true, false, true);
    const bool deleted = temp.ExecuteQuery(KSql::formatted("DELETE FROM FileDocs WHERE iID=%1 AND %2", id, visibleTo(userID))) > 0;
    if (deleted && isKnown)
        noteFile(file, false);
    transaction.commit();
    return deleted;
}

void CTblFileDocs::DeleteAllRelatedRecords(int table, int recordID, int userID, int database)
{
    KSql statement = KSql::formatted("DELETE FROM FileDocs WHERE iTable=%1 AND iRecordID=%2", table, recordID);
    if (userID != 0)
        statement += KSql::formatted(" AND iUserID=%1", userID);
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery(statement);
}

QString CTblFileDocs::safeFileName(const QString &name)
{
    static const QString forbidden = u"\\/:*?\"<>|"_s;
    QString safe;
    for (const QChar c : name) {
        const bool invisible = c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
        if (!invisible)
            safe += forbidden.contains(c) ? QChar(u'_') : c;
    }
    while (!safe.isEmpty() && (safe.startsWith(u'.') || safe.startsWith(u' ')))
        safe.remove(0, 1);
    while (!safe.isEmpty() && (safe.endsWith(u'.') || safe.endsWith(u' ')))
        safe.chop(1);
    if (safe.isEmpty())
        return u"file"_s;
    if (isReservedName(safe.section(u'.', 0, 0)))
        safe.prepend(u'_');
    return shortened(safe, 100);
}
