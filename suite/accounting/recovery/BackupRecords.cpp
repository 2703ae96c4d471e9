// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/BackupRecords.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/bin/RecordReturn.h"
#include "suite/accounting/bin/RecordWords.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/KMySQL.h"
#include "suite/db/KTableSchema.h"
#include "suite/db/KTransaction.h"

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

// One restoring out of a backup, with the records that are missed along the way.
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
            package, QDateTime(), 0, [this](const QString &other, qint32 otherKey) { return bringAlong(other, otherKey); }, document);
        const qint32 now = comingBack.run();
        notes += comingBack.notes();
        if (const RecordParts *parts = BinnedRecords::of(table); parts && parts->recount)
            parts->recount(now, 0);
        return now;
    }

    QStringList notes;

private:
    std::optional<qint32> bringAlong(const QString &table, qint32 key)
    {
        if (!BinnedRecords::of(table))
            return std::nullopt;
        // What the office deleted itself is newer than the backup.
        if (const std::optional<BinRestoring::Along> along = BinRestoring::bringAlong(table, key, 0)) {
            notes += along->notes;
            return along->key;
        }
        if (!KWholeRow::read(table, key, m_backup))
            return std::nullopt;
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
