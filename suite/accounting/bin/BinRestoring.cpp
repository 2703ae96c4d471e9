// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/BinRestoring.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/bin/RecordReturn.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuseGone(const Bin::Entry &shown, int database)
{
    const auto change = KChangeLog::last(shown.table, shown.key, database);
    if (change && change->kind == KChange::Kind::Restored)
        throw KAccountingError(u"%1 این ردیف را پیش از شما بازگردانده است."_s.arg(RowChanged::user(change->userID, change->when, database)));
    throw KAccountingError(u"این ردیف دیگر در سطل بازیافت نیست."_s);
}

bool lockEntry(qint32 id, int database)
{
    CTblTemp entry(database);
    entry.FormatAndExecuteQuery("SELECT iID FROM Bin WHERE iID=%d FOR UPDATE", id);
    return entry.HasResultRow();
}

// The entry that has the row: as its own record, or among what went along with another.
std::optional<Bin::Entry> entryWith(const QString &table, qint32 key, int database)
{
    if (std::optional<Bin::Entry> own = Bin::entryOf(table, key, database))
        return own;
    QList<KSql> owners;
    for (const RecordParts *parts : BinnedRecords::all()) {
        for (const RecordPart &part : parts->parts) {
            if (part.table == table)
                owners.append(KSql::quoted(parts->table));
        }
    }
    if (owners.isEmpty())
        return std::nullopt;
    CTblTemp rows(database);
    rows.ExecuteQuery(KSql::formatted("SELECT b.iID FROM Bin b JOIN BinRows r ON r.iBinID=b.iID WHERE b.sTable IN (%1) AND r.sTable=%2 AND r.iRecordID=%3"
                                      " ORDER BY b.iID DESC LIMIT 1",
                                      KSql::joined(owners, ","), KSql::quoted(table), key));
    return rows.HasResultRow() ? Bin::entry(rows.GetLongFieldValue(0), database) : std::nullopt;
}

// One restoring with all that it brings along.
class Unit
{
public:
    explicit Unit(int database)
        : m_database(database)
    {
    }

    qint32 bringBack(const Bin::Entry &entry)
    {
        const RecordPackage package = RecordPackage::ofBin(entry.id, m_database);
        RecordReturn comingBack(package, entry.date, m_database, [this](const QString &table, qint32 key) { return bringAlong(table, key); });
        const qint32 key = comingBack.run();
        notes += comingBack.notes();
        Bin::take(entry.id, m_database);
        return key;
    }

    QStringList notes;

    std::optional<qint32> bringAlong(const QString &table, qint32 key)
    {
        const std::optional<Bin::Entry> entry = entryWith(table, key, m_database);
        if (!entry || !BinRestoring::mayRestore(*entry, m_database) || !lockEntry(entry->id, m_database))
            return std::nullopt;
        qint32 now = 0;
        try {
            now = bringBack(*entry);
        } catch (const KAccountingError &refusal) {
            // What is refused is refused before its first row is written.
            notes.append(refusal.userMessage());
            return std::nullopt;
        }
        notes.append(u"%1 هم بازگشت."_s.arg(entry->name()));
        return entry->table == table && entry->key == key ? now : key;
    }

private:
    int m_database;
};

}

bool BinRestoring::mayRestore(const Bin::Entry &entry, int database)
{
    if (Bin::isAdministrator(database))
        return true;
    const RecordParts *parts = BinnedRecords::of(entry.table);
    KSecurity::forgetRights();
    return parts && entry.userID == GetDBSetting()->GetUserID() && KSecurity::IsGranted(parts->form, KSecurity::Delete);
}

std::optional<BinRestoring::Along> BinRestoring::bringAlong(const QString &table, qint32 key, int database)
{
    Unit unit(database);
    const std::optional<qint32> now = unit.bringAlong(table, key);
    return now ? std::optional(Along{*now, unit.notes}) : std::nullopt;
}

BinRestoring::Restored BinRestoring::run(const Bin::Entry &shown, int database)
{
    Restored restored;
    KTransaction::runReplayable(
        [&] {
            CTblDocuments::lockBooks(database);
            OfficeClosing::requireOpen(database);
            const bool isThere = lockEntry(shown.id, database);
            const std::optional<Bin::Entry> entry = isThere ? Bin::entry(shown.id, database) : std::nullopt;
            if (!entry)
                refuseGone(shown, database);
            if (!mayRestore(*entry, database))
                throw KAccountingError(u"این ردیف را کاربر دیگری حذف کرده است یا اجازه حذف آن را ندارید؛ فقط مدیران آن را بازمی‌گردانند."_s);
            Unit unit(database);
            const qint32 key = unit.bringBack(*entry);
            restored = {entry->table, key, (QStringList{u"%1 بازگشت."_s.arg(entry->name())} + unit.notes).join(u'\n')};
        },
        database);
    return restored;
}
