// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/Bin.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/records/KMySQL.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/connection/KTransaction.h"

#include <QLoggingCategory>
#include <QSysInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcBin, "tz.bin")

// Characters of Bin.sTitle.
constexpr int longestTitle = 250;
// Entries that one look for expired ones finds.
constexpr int entriesAtOnce = 200;

std::optional<Bin::Entry> entryWhere(const KSql &condition, int database)
{
    CTblTemp found(database);
    found.Open(true, false, true);
    found.ExecuteQuery("SELECT iID,sTable,iRecordID,sTitle,iUserID,date FROM Bin WHERE " + condition + " ORDER BY iID DESC LIMIT 1");
    if (!found.HasResultRow())
        return std::nullopt;
    return Bin::Entry{found.GetLongFieldValue(0), found.GetTextFieldValue(1), found.GetLongFieldValue(2),
                      found.GetTextFieldValue(3), found.GetLongFieldValue(4), found.GetDateFieldValue(5)};
}

void requireAdministrator(int database)
{
    if (!Bin::isAdministrator(database))
        throw KAccountingError(u"حذف همیشگی از سطل بازیافت فقط برای مدیران ممکن است. چیزی حذف نشد."_s);
}

QList<qint32> allEntries(int database)
{
    return KWholeRow::keys(u"Bin"_s, "TRUE", database);
}

}

QString Bin::Entry::name() const
{
    const RecordSubject *subject = RecordSubjects::of(table);
    return u"%1 %2"_s.arg(subject ? subject->kind : table, title.isEmpty() ? QString::number(key) : title);
}

int Bin::days(int database)
{
    return std::clamp(CTblProperties::DBReadSettingInt(u"Bin"_s, u"BinDays"_s, usualDays, database), leastDays, mostDays);
}

bool Bin::isAdministrator(int database)
{
    CTblTemp user(database);
    user.FormatAndExecuteQuery("SELECT bAdmin FROM Users WHERE iID=%d LOCK IN SHARE MODE", GetDBSetting()->GetUserID());
    return user.GetLongFieldValue(0) != 0;
}

qint32 Bin::put(KMySQL &record)
{
    const int database = record.database();
    const QString table = record.GetTableName();
    const qint32 key = record.value(u"iID").toInt();
    if (!BinnedRecords::of(table) || KTableSchema::of(u"BinRows"_s, database).isEmpty() || Placeholders::contains({table, key}, database))
        return 0;
    const RecordPackage package = RecordPackage::ofRecord(table, key, database, true);
    if (package.isEmpty())
        return 0;
    const RecordSubject *subject = RecordSubjects::of(table);
    const QString title = subject && subject->title ? subject->title(record) : QString();
    CTblTemp bin(database);
    bin.ExecuteQuery(KSql::formatted("INSERT INTO Bin(sTable,iRecordID,sTitle,iUserID,sComputer,date) VALUES(%1,%2,%3,%4,%5,NOW())", KSql::quoted(table), key,
                                     KSql::quoted(title.left(longestTitle)), KChangeLog::author(),
                                     KSql::quoted(QSysInfo::machineHostName().left(100))));
    const auto entry = static_cast<qint32>(bin.GetLastInsertedID());
    package.putInto(entry);
    return entry;
}

std::optional<Bin::Entry> Bin::entry(qint32 id, int database)
{
    return entryWhere(KSql::formatted("iID=%1", id), database);
}

std::optional<Bin::Entry> Bin::entryOf(const QString &table, qint32 key, int database)
{
    return entryWhere(KSql::formatted("sTable=%1 AND iRecordID=%2", KSql::quoted(table), key), database);
}

bool Bin::take(qint32 id, int database)
{
    CTblTemp bin(database);
    const bool wasThere = bin.FormatAndExecuteQuery("DELETE FROM Bin WHERE iID=%d", id) > 0;
    bin.FormatAndExecuteQuery("DELETE FROM BinRows WHERE iBinID=%d", id);
    return wasThere;
}

bool Bin::remove(qint32 id, int database)
{
    bool removed = false;
    KTransaction::runReplayable(
        [&] {
            OfficeClosing::requireOpen(database);
            requireAdministrator(database);
            const std::optional<Entry> gone = entry(id, database);
            removed = take(id, database);
            if (removed && gone)
                KChangeLog::note(u"Bin"_s, id, KChange::Kind::Deleted, database, {{u"sTitle"_s, gone->name(), QVariant()}});
        },
        database);
    return removed;
}

int Bin::removeAll(int database)
{
    int removed = 0;
    for (const qint32 id : allEntries(database))
        removed += remove(id, database) ? 1 : 0;
    return removed;
}

int Bin::removeExpired(int database)
{
    if (KTableSchema::of(u"BinRows"_s, database).isEmpty() || CDBSetting::IsClosed(database))
        return 0;
    const std::unique_ptr<KLease> lease = KLease::tryTake(u"bin"_s, u"پاک کردن سطل بازیافت"_s, database);
    if (!lease)
        return 0;
    const KSql expired = KSql::formatted("date<NOW()-INTERVAL %1 DAY", days(database));
    int removed = 0;
    for (QList<qint32> ids; lease->isHeld();) {
        ids = KWholeRow::keys(u"Bin"_s, expired, database).mid(0, entriesAtOnce);
        if (ids.isEmpty())
            break;
        // One by one, so that nobody waits for long.
        for (const qint32 id : std::as_const(ids))
            KTransaction::runReplayable([&] { removed += take(id, database) ? 1 : 0; }, database);
    }
    if (removed > 0)
        qCInfo(lcBin) << removed << "deleted records whose time is over were removed from the bin";
    return removed;
}
