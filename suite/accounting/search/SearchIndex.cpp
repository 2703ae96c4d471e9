// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchIndex.h"

#include "suite/accounting/search/SearchProgress.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KRowFollowers.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/connection/KTransaction.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int recordsPerStep = 300;
constexpr int rowsPerStatement = 500;
constexpr int wholePart = 1000;

const QString followerOfNames = u"search/names"_s;

using Keys = QSet<QString>;

QString followerName(int kind)
{
    return u"search/%1"_s.arg(kind);
}

KSql listed(const QList<KSql> &parts)
{
    return KSql::joined(parts, ",");
}

KSql quotedList(const QStringList &texts)
{
    QList<KSql> parts;
    for (const QString &text : texts)
        parts.append(KSql::quoted(text));
    return listed(parts);
}

bool hasTable(int database)
{
    return !KTableSchema::of(u"SearchKeys"_s, database).isEmpty();
}

// As they are to be. The rows are locked for others' changes: what is read must still hold when the keys are written.
QHash<qint32, Keys> wantedKeys(const SearchKind &kind, const QList<qint32> &records, int database)
{
    QHash<qint32, Keys> wanted;
    const KSql condition = KSql::formatted("t.iID IN (%1) LOCK IN SHARE MODE", KSql::list(records));
    for (const SearchRow &row : SearchKinds::read(kind.keyColumns, condition, database))
        wanted.insert(row.constFirst().toInt(), SearchKinds::keysOf(kind, row));
    return wanted;
}

// Without a lock, which would reach beyond these records and keep others from adding theirs. Whoever writes a record's keys holds the record.
QHash<qint32, Keys> storedKeys(int kind, const KSql &records, int database)
{
    QHash<qint32, Keys> stored;
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT iRecordID,sKey FROM SearchKeys FORCE INDEX (record) WHERE iKind=%1 AND ", kind) + records);
    for (; query.HasResultRow(); query.MoveNextResult())
        stored[query.GetLongFieldValue(0)].insert(query.GetTextFieldValue(1));
    return stored;
}

void insertKeys(int kind, const QHash<qint32, Keys> &missing, int database)
{
    // In the order of the table, which fills its pages.
    QList<std::pair<QString, qint32>> rows;
    for (auto record = missing.cbegin(); record != missing.cend(); ++record) {
        for (const QString &key : record.value())
            rows.append({key, record.key()});
    }
    std::ranges::sort(rows);
    CTblTemp statement(database);
    for (qsizetype from = 0; from < rows.size(); from += rowsPerStatement) {
        QList<KSql> values;
        for (const auto &[key, record] : rows.mid(from, rowsPerStatement))
            values.append(KSql::formatted("(%1,%2,%3)", kind, KSql::quoted(key), record));
        statement.ExecuteQuery("INSERT IGNORE INTO SearchKeys(iKind,sKey,iRecordID) VALUES" + listed(values));
    }
}

void removeKeys(int kind, const QHash<qint32, Keys> &needless, int database)
{
    CTblTemp statement(database);
    for (auto record = needless.cbegin(); record != needless.cend(); ++record) {
        const QStringList keys(record.value().cbegin(), record.value().cend());
        if (!keys.isEmpty())
            statement.ExecuteQuery(KSql::formatted("DELETE k FROM SearchKeys k FORCE INDEX (PRIMARY) WHERE k.iKind=%1 AND k.iRecordID=%2 AND k.sKey IN (%3)", kind,
                                                   record.key(), quotedList(keys)));
    }
}

QHash<qint32, Keys> without(const QHash<qint32, Keys> &all, const QHash<qint32, Keys> &others)
{
    QHash<qint32, Keys> rest;
    for (auto record = all.cbegin(); record != all.cend(); ++record) {
        const Keys left = Keys(record.value()).subtract(others.value(record.key()));
        if (!left.isEmpty())
            rest.insert(record.key(), left);
    }
    return rest;
}

// among: the records whose keys are compared, these and what is left of others.
void bring(const SearchKind &kind, const QList<qint32> &records, const KSql &among, int database)
{
    const QHash<qint32, Keys> wanted = records.isEmpty() ? QHash<qint32, Keys>() : wantedKeys(kind, records, database);
    const QHash<qint32, Keys> stored = storedKeys(kind.number, among, database);
    removeKeys(kind.number, without(stored, wanted), database);
    insertKeys(kind.number, without(wanted, stored), database);
}

QList<qint32> keysIn(const KSql &statement, int database)
{
    QList<qint32> keys;
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(statement);
    for (; query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

// Records of other kinds show the person's name.
void nameChanged(qint32 person, int database)
{
    if (!hasTable(database))
        return;
    for (const SearchKind &kind : SearchKinds::all()) {
        if (kind.persons.isEmpty())
            continue;
        SearchIndex::write(kind, keysIn(KSql::formatted("SELECT iRecordID FROM SearchKeys WHERE iKind=%1 AND sKey=%2 LOCK IN SHARE MODE", kind.number, KSql::quoted(SearchText::ofReference(person))), database), database);
    }
}

qint32 highestKey(const QString &table, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT MAX(iID) FROM " + KSql::name(table));
    return query.GetLongFieldValue(0);
}

// One step of a run; false where the kind has no more records.
bool buildStep(const SearchKind &kind, SearchProgress &progress, int database)
{
    SearchProgress next = progress;
    bool more = false;
    KTransaction::runReplayable(
        [&] {
            next = progress;
            const QList<qint32> records = keysIn(KSql::formatted("SELECT iID FROM %1 WHERE iID>%2 ORDER BY iID LIMIT %3", KSql::name(kind.table), progress.record, recordsPerStep), database);
            more = !records.isEmpty();
            if (more) {
                next.record = records.constLast();
                bring(kind, records, KSql::formatted("iRecordID>%1 AND iRecordID<=%2", progress.record, next.record), database);
            } else {
                // What is left of records that were the last ones.
                SearchIndex::write(kind, keysIn(KSql::formatted("SELECT DISTINCT iRecordID FROM SearchKeys WHERE iKind=%1 AND iRecordID>%2", kind.number, progress.record), database), database);
            }
            next.store(database);
        },
        database);
    progress = next;
    return more;
}

int partDone(qsizetype kindsDone, qsizetype kinds, qint32 record, qint32 highest)
{
    const double within = highest > 0 ? std::min(1.0, double(record) / highest) : 1;
    return static_cast<int>((double(kindsDone) + within) * wholePart / double(kinds));
}

}

void SearchIndex::enter(const SearchKind &kind)
{
    SearchKinds::enter(kind);
    // The kind is asked for when the follower is called: another of the number may have taken its place.
    const int number = kind.number;
    const auto written = [number](qint32 key, int database) {
        if (hasTable(database))
            write(SearchKinds::of(number), {key}, database);
    };
    const auto deleted = [number](qint32 key, int database) {
        if (hasTable(database))
            removeKeys(number, storedKeys(number, KSql::formatted("iRecordID=%1", key), database), database);
    };
    KRowFollowers::enter(followerName(number), kind.table, {.written = written, .deleted = deleted, .columns = kind.columns});
    if (number == SearchKinds::Persons)
        KRowFollowers::enter(followerOfNames, kind.table, {.written = &nameChanged, .deleted = &nameChanged, .columns = {u"sName2"_s}});
}

void SearchIndex::remove(int number)
{
    KRowFollowers::remove(followerName(number));
    if (number == SearchKinds::Persons)
        KRowFollowers::remove(followerOfNames);
    SearchKinds::remove(number);
}

void SearchIndex::write(const SearchKind &kind, const QList<qint32> &records, int database)
{
    for (qsizetype from = 0; from < records.size() && kind.number != 0; from += recordsPerStep) {
        const QList<qint32> some = records.mid(from, recordsPerStep);
        bring(kind, some, KSql::formatted("iRecordID IN (%1)", KSql::list(some)), database);
    }
}

QList<qint32> SearchIndex::recordsWith(int number, const QString &key, int database)
{
    if (key.isEmpty() || !hasTable(database))
        return {};
    return keysIn(KSql::formatted("SELECT iRecordID FROM SearchKeys WHERE iKind=%1 AND sKey=%2 ORDER BY iRecordID DESC LIMIT 10", number, KSql::quoted(key)), database);
}

bool SearchIndex::build(bool anew, const Wanted &wanted, int database)
{
    SearchProgress progress = anew ? SearchProgress{} : SearchProgress::read(database);
    if (progress.complete)
        return true;
    if (anew)
        progress.store(database);
    const QList<SearchKind> kinds = SearchKinds::all();
    for (qsizetype done = 0; done < kinds.size(); ++done) {
        const SearchKind &kind = kinds.at(done);
        if (kind.number < progress.kind)
            continue;
        if (kind.number > progress.kind)
            progress = {SearchProgress::rulesVersion, kind.number, 0, false};
        const qint32 highest = highestKey(kind.table, database);
        while (buildStep(kind, progress, database)) {
            if (wanted && !wanted(partDone(done, kinds.size(), progress.record, highest)))
                return false;
        }
    }
    progress.complete = true;
    progress.store(database);
    return true;
}

bool SearchIndex::isBuilt(int database)
{
    return SearchProgress::read(database).complete;
}
