// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/BackupRecords.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/bin/RecordReturn.h"
#include "suite/accounting/bin/RecordWords.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KMySQL.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/connection/KTransaction.h"

#include <QHash>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A backup may be older than a column.
QStringList columnsIn(KMySQL &record)
{
    const KTableSchema &schema = KTableSchema::of(record.GetTableName(), record.database());
    QStringList names;
    for (const KMySQL::Column &column : record.columns()) {
        if (schema.column(column.name) && column.kind != KMySQL::ColumnKind::LongBlob)
            names.append(column.name);
    }
    return names;
}

KSql holding(KMySQL &record, const QString &searched)
{
    if (searched.trimmed().isEmpty())
        return "TRUE";
    const QStringList names = columnsIn(record);
    QList<KSql> any;
    for (const KMySQL::Column &column : record.columns()) {
        if (column.kind == KMySQL::ColumnKind::Text && names.contains(column.name))
            any.append(FilterClauses::contains(KSql::name(column.name), searched.trimmed()));
    }
    bool isNumber = false;
    const int code = searched.trimmed().toInt(&isNumber);
    if (isNumber && names.contains(u"iCode"))
        any.append(KSql::formatted("iCode=%1", code));
    return any.isEmpty() ? KSql("FALSE") : "(" + KSql::joined(any, " OR ") + ")";
}

// The document of one that came back has got another number.
bool isSame(const KWholeRow &then, const KWholeRow &now)
{
    return std::ranges::all_of(then.cells(), [&](const KWholeRow::Cell &cell) {
        if (cell.column == u"iDocNum" || cell.column == u"iFiscalYear")
            return true;
        const auto other = std::ranges::find_if(now.cells(), [&](const KWholeRow::Cell &one) { return one.column == cell.column; });
        return other == now.cells().cend() || *other == cell;
    });
}

QHash<qint32, KWholeRow> byKey(const QString &table, const QList<qint32> &keys, int database)
{
    QHash<qint32, KWholeRow> rows;
    for (const qint32 key : keys) {
        if (const std::optional<KWholeRow> row = KWholeRow::read(table, key, database))
            rows.insert(key, *row);
    }
    return rows;
}

// The columns by which people tell one from another; empty: of that table nothing is known.
QStringList knownBy(const QString &table)
{
    if (table == u"Users")
        return {u"sUser"_s};
    if (table == u"CustomFields")
        return {u"iTable"_s, u"sName"_s};
    const RecordParts *parts = BinnedRecords::of(table);
    return parts ? parts->known : QStringList();
}

// None of what both of them say differs.
bool isSameOne(const KWholeRow &then, const KWholeRow &now)
{
    const QStringList known = knownBy(then.table());
    return std::ranges::all_of(known, [&](const QString &column) {
        const QString before = then.text(column);
        const QString after = now.text(column);
        return before == after || before.isEmpty() || after.isEmpty();
    });
}

// One in the office that is known by all the same; 0: there is none, or too little is known.
qint32 officeKeyOf(const KWholeRow &then)
{
    QList<KSql> all;
    for (const QString &column : knownBy(then.table())) {
        if (then.text(column).isEmpty())
            return 0;
        all.append(KSql::formatted("%1=%2", KSql::name(column), KSql::quoted(then.text(column))));
    }
    const QList<qint32> keys = all.isEmpty() ? QList<qint32>() : KWholeRow::keys(then.table(), KSql::joined(all, " AND "));
    return keys.isEmpty() ? 0 : keys.constFirst();
}

// One restoring out of a backup, with the records that are missed along the way. Since the backup was taken, the office may have given its
// keys to others.
class FromBackup
{
public:
    explicit FromBackup(int backup)
        : m_backup(backup)
    {
    }

    qint32 bringBack(const QString &table, qint32 key, RecordReturn::Document document)
    {
        const RecordPackage package = RecordPackage::ofRecord(table, key, m_backup);
        RecordReturn comingBack(
            package, deletedAt(package), 0, [this](const QString &other, qint32 otherKey) { return bringAlongOnce(other, otherKey); }, document,
            [this](const QString &other, qint32 otherKey) { return isMeant(other, otherKey); });
        const qint32 now = comingBack.run();
        notes += comingBack.notes();
        if (const RecordParts *parts = BinnedRecords::of(table); parts && parts->recount)
            parts->recount(now, 0);
        return now;
    }

    QStringList notes;

private:
    bool isMeant(const QString &table, qint32 key) const
    {
        const std::optional<KWholeRow> then = KWholeRow::read(table, key, m_backup);
        const std::optional<KWholeRow> now = KWholeRow::read(table, key, 0);
        return then && now && isSameOne(*then, *now);
    }

    // Books that the backup knows as closed were closed with its documents. Else the history says when the record went.
    QDateTime deletedAt(const RecordPackage &package) const
    {
        const QList<qint32> documents = package.keysOf(u"Documents"_s);
        if (documents.isEmpty())
            return {};
        if (OfficeSettings::read({}, m_backup).fiscalYear() > package.row({u"Documents"_s, documents.constFirst()}).number(u"iFiscalYear"))
            return OfficeSettings::read().serverTime();
        const std::optional<KChange> last = KChangeLog::last(package.table(), package.key());
        return last && last->kind == KChange::Kind::Deleted ? last->when : QDateTime();
    }

    std::optional<qint32> bringAlongOnce(const QString &table, qint32 key)
    {
        const auto known = m_along.constFind({table, key});
        if (known != m_along.cend())
            return *known;
        const std::optional<qint32> now = bringAlong(table, key);
        m_along.insert({table, key}, now);
        return now;
    }

    std::optional<qint32> bringAlong(const QString &table, qint32 key)
    {
        const std::optional<KWholeRow> then = KWholeRow::read(table, key, m_backup);
        if (!then)
            return std::nullopt;
        if (const qint32 met = officeKeyOf(*then))
            return met;
        if (!BinnedRecords::of(table))
            return std::nullopt;
        // What the office deleted itself is newer than the backup.
        const std::optional<Bin::Entry> binned = Bin::entryOf(table, key);
        if (binned && isSameOne(*then, RecordPackage::ofBin(binned->id).row({table, key}))) {
            if (const std::optional<BinRestoring::Along> along = BinRestoring::bringAlong(table, key, 0)) {
                notes += along->notes;
                return along->key;
            }
        }
        try {
            const qint32 now = bringBack(table, key, RecordReturn::Document::Own);
            notes.append(u"%1 هم بازگشت."_s.arg(RecordSubjects::nameOf(table, now)));
            return now;
        } catch (const KAccountingError &refusal) {
            notes.append(refusal.userMessage());
            return std::nullopt;
        }
    }

    int m_backup;
    QHash<std::pair<QString, qint32>, std::optional<qint32>> m_along;
};

QString valueOf(const QList<RecordWords::Line> &lines, const QString &caption)
{
    const auto found = std::ranges::find_if(lines, [&](const RecordWords::Line &line) { return line.caption == caption; });
    return found == lines.cend() ? QString() : found->value;
}

}

QList<BackupRecords::Found> BackupRecords::find(const QString &table, const QString &searched, int backup)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    if (!subject)
        return {};
    const std::unique_ptr<KMySQL> record = subject->make(backup);
    record->m_filter = holding(*record, searched);
    if (!KTableSchema::of(u"Placeholders"_s, backup).isEmpty())
        record->m_filter += " AND " + Placeholders::none(table);
    record->m_sort = "iID DESC";
    record->SetLimit(mostFound);
    record->SetColumns(columnsIn(*record));
    QList<Found> found;
    QList<qint32> keys;
    for (record->Open(true, true, true); !record->IsEOF(); record->MoveNext()) {
        const qint32 key = record->value(u"iID").toInt();
        const QString title = subject->title ? subject->title(*record) : QString();
        found.append({key, title.isEmpty() ? QString::number(key) : title});
        keys.append(key);
    }
    const QHash<qint32, KWholeRow> then = byKey(table, keys, backup);
    const QHash<qint32, KWholeRow> now = byKey(table, keys, 0);
    // A number is a code before it is a part of some text.
    const int code = searched.trimmed().toInt();
    std::ranges::stable_partition(found, [&](const Found &one) { return code > 0 && then.value(one.key).number(u"iCode") == code; });
    for (Found &one : found) {
        if (now.contains(one.key))
            one.state = isSame(then.value(one.key), now.value(one.key)) ? State::Same : State::Changed;
        else
            one.state = Bin::entryOf(table, one.key) ? State::Binned : State::Missing;
    }
    return found;
}

BackupRecords::State BackupRecords::stateOf(const QString &table, qint32 key, int backup)
{
    const std::optional<KWholeRow> then = KWholeRow::read(table, key, backup);
    const std::optional<KWholeRow> now = KWholeRow::read(table, key, 0);
    if (now)
        return then && isSame(*then, *now) ? State::Same : State::Changed;
    return Bin::entryOf(table, key) ? State::Binned : State::Missing;
}

QList<BackupRecords::Difference> BackupRecords::differences(const QString &table, qint32 key, int backup)
{
    const std::optional<KWholeRow> then = KWholeRow::read(table, key, backup);
    const std::optional<KWholeRow> now = KWholeRow::read(table, key, 0);
    const QList<RecordWords::Line> before = then ? RecordWords::ofRow(*then, backup) : QList<RecordWords::Line>();
    const QList<RecordWords::Line> after = now ? RecordWords::ofRow(*now) : QList<RecordWords::Line>();
    QStringList captions;
    for (const RecordWords::Line &line : before + after)
        captions.append(line.caption);
    captions.removeDuplicates();
    QList<Difference> found;
    for (const QString &caption : std::as_const(captions)) {
        const Difference difference{caption, valueOf(before, caption), valueOf(after, caption)};
        if (difference.then != difference.now)
            found.append(difference);
    }
    const auto contents = [&](int database) { return RecordPackage::ofRecord(table, key, database).contents(); };
    if (const Difference parts{u"به همراه"_s, contents(backup), now ? contents(0) : QString()}; parts.then != parts.now)
        found.append(parts);
    return found;
}

BinRestoring::Restored BackupRecords::restore(const QString &table, qint32 key, int backup, bool asNew)
{
    BinRestoring::Restored restored;
    KTransaction::runReplayable([&] {
        CTblDocuments::lockBooks();
        OfficeClosing::requireOpen();
        if (!Bin::isAdministrator())
            throw KAccountingError(u"بازگرداندن از پشتیبان فقط برای مدیران ممکن است. چیزی بازنگشت."_s);
        const bool isThere = !KWholeRow::present(table, {key}).isEmpty();
        if (isThere && !asNew)
            throw KAccountingError(u"این ردیف در برنامه هست. چیزی بازنگشت."_s);
        if (!isThere && Bin::entryOf(table, key))
            throw KAccountingError(u"این ردیف در سطل بازیافت است؛ آن را از آنجا بازگردانید."_s);
        FromBackup unit(backup);
        const qint32 now = unit.bringBack(table, key, isThere ? RecordReturn::Document::LeftOut : RecordReturn::Document::Own);
        restored = {table, now, (QStringList{u"%1 بازگشت."_s.arg(RecordSubjects::nameOf(table, now))} + unit.notes).join(u'\n')};
    });
    return restored;
}
