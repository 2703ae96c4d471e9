// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchFinding.h"

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/accounting/search/SearchQuery.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/db/records/CTblTemp.h"

#include <QHash>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostExact = 40;
constexpr int mostOfAStart = 100;      // keys that are read of one beginning
constexpr int mostRecords = 100;       // of a kind
constexpr int mostCandidates = 600;    // with one of several words
constexpr qsizetype enoughByWhole = 3; // whoever typed a name whole means it
constexpr int countedKeys = 300;       // of a word, to tell which one is rare

enum Rank : int {
    Whole,
    Beginning,
    End,
    Explanation
};

// By record, the best rank.
using Ranked = QHash<qint32, int>;
using Found = QHash<int, Ranked>;

// Of the key by which a record was found.
Rank rankOf(const QString &key, const SearchQuery::Starts &starts)
{
    if (key.startsWith(SearchText::backwards))
        return End;
    if (key.startsWith(SearchText::explaining))
        return Explanation;
    return starts.contains(key) ? Whole : Beginning;
}

class Finding
{
public:
    Finding(const QList<int> &kinds, int database)
        : m_kinds(kinds)
        , m_database(database)
    {
    }

    Found find(const SearchQuery &query)
    {
        findWhole(query.whole, query.words.size() < 2);
        if (query.words.size() > 1)
            findWords(query.words);
        return m_found;
    }

private:
    // Rows of kind, record and the key that it was found by; empty: by several words.
    void take(const QList<KSql> &parts, const SearchQuery::Starts &starts)
    {
        if (parts.isEmpty())
            return;
        CTblTemp statement(m_database);
        statement.Open(false, false, true);
        statement.ExecuteQuery(KSql::joined(parts, " UNION ALL "));
        for (; statement.HasResultRow(); statement.MoveNextResult()) {
            Ranked &records = m_found[statement.GetLongFieldValue(0)];
            const qint32 record = statement.GetLongFieldValue(1);
            const int rank = rankOf(statement.GetTextFieldValue(2), starts);
            records.insert(record, std::min(rank, records.value(record, rank)));
        }
    }

    // The newest of those with the whole key, and the first ones behind it in the order of the keys. The beginnings of one word are read each by
    // itself, so that none takes the room of another; those of several words have few keys.
    void findWhole(const SearchQuery::Starts &starts, bool oneWord)
    {
        QList<SearchQuery::Starts> together{starts};
        if (oneWord) {
            together.clear();
            for (const QString &start : starts)
                together.append({start});
        }
        QList<KSql> whole;
        for (const QString &start : starts) {
            if (!start.startsWith(SearchText::backwards) && !start.startsWith(SearchText::explaining))
                whole.append(KSql::quoted(start));
        }
        QList<KSql> parts;
        for (const int kind : m_kinds) {
            for (const KSql &key : whole)
                parts.append(KSql::formatted("(SELECT iKind,iRecordID,sKey FROM SearchKeys WHERE iKind=%1 AND sKey=%2 ORDER BY iRecordID DESC LIMIT %3)", kind, key, mostExact));
            for (const SearchQuery::Starts &some : together)
                parts.append(KSql::formatted("(SELECT iKind,iRecordID,sKey FROM SearchKeys k FORCE INDEX (PRIMARY) WHERE k.iKind=%1 AND %2 ORDER BY iKind,sKey LIMIT %3)", kind, SearchQuery::beginsWith("k.sKey", some), mostOfAStart));
        }
        take(parts, starts);
    }

    // Records in which each word is found, beginning with the one that fewest have. The others are asked for record by record: an EXISTS the
    // server may turn round, and read all that have a common word.
    void findWords(const QList<SearchQuery::Starts> &words)
    {
        QList<int> wanting = m_kinds;
        wanting.removeIf([this](int kind) { return m_found.value(kind).size() >= enoughByWhole; });
        if (wanting.isEmpty())
            return;
        const QHash<int, QList<int>> counts = countKeys(wanting, words);
        QList<KSql> parts;
        for (const int kind : std::as_const(wanting)) {
            const QList<int> ofKind = counts.value(kind, QList<int>(words.size(), 0));
            if (ofKind.contains(0))
                continue;
            const qsizetype rarest = std::ranges::min_element(ofKind) - ofKind.cbegin();
            KSql part = KSql::formatted("(SELECT %1,c.iRecordID,'' FROM (SELECT DISTINCT iRecordID FROM SearchKeys k WHERE k.iKind=%1 AND %2 LIMIT %3) c WHERE TRUE", kind, SearchQuery::beginsWith("k.sKey", words.at(rarest)), mostCandidates);
            for (qsizetype word = 0; word < words.size(); ++word) {
                if (word != rarest)
                    part += KSql::formatted(" AND (SELECT 1 FROM SearchKeys b FORCE INDEX (record) WHERE b.iKind=%1 AND b.iRecordID=c.iRecordID AND %2 LIMIT 1) IS NOT NULL", kind, SearchQuery::beginsWith("b.sKey", words.at(word)));
            }
            parts.append(part + KSql::formatted(" LIMIT %1)", mostRecords));
        }
        take(parts, {});
    }

    // By kind and word, up to a few hundred.
    QHash<int, QList<int>> countKeys(const QList<int> &kinds, const QList<SearchQuery::Starts> &words) const
    {
        QList<KSql> parts;
        for (const int kind : kinds) {
            for (int word = 0; word < words.size(); ++word) {
                parts.append(KSql::formatted("(SELECT %1,%2,COUNT(*) FROM (SELECT 1 FROM SearchKeys k WHERE k.iKind=%1 AND %3 LIMIT %4) counted)", kind, word, SearchQuery::beginsWith("k.sKey", words.at(word)), countedKeys));
            }
        }
        QHash<int, QList<int>> counts;
        CTblTemp statement(m_database);
        statement.Open(false, false, true);
        statement.ExecuteQuery(KSql::joined(parts, " UNION ALL "));
        for (; statement.HasResultRow(); statement.MoveNextResult()) {
            QList<int> &ofKind = counts[statement.GetLongFieldValue(0)];
            ofKind.resize(words.size());
            ofKind[statement.GetLongFieldValue(1)] += statement.GetLongFieldValue(2);
        }
        return counts;
    }

    QList<int> m_kinds;
    int m_database;
    Found m_found;
};

QList<qint32> inOrder(const Ranked &records)
{
    QList<qint32> keys = records.keys();
    std::ranges::sort(keys, [&](qint32 one, qint32 other) {
        const int first = records.value(one);
        const int second = records.value(other);
        return first != second ? first < second : one > other;
    });
    return keys;
}

QList<SearchHit> hitsOf(const SearchKind &kind, const QList<qint32> &records, int database)
{
    QHash<qint32, SearchHit> hits;
    const KSql condition = KSql::formatted("t.iID IN (%1)", KSql::list(records)) + " AND " + Placeholders::none(kind.table, u"t.iID"_s);
    for (const SearchRow &row : SearchKinds::read(kind.hitColumns, condition, database)) {
        SearchHit hit = kind.hit(row);
        hit.kind = kind.number;
        hit.table = kind.table;
        hit.key = row.constFirst().toInt();
        hits.insert(hit.key, hit);
    }
    QList<SearchHit> list;
    for (const qint32 record : records) {
        if (hits.contains(record))
            list.append(hits.value(record));
    }
    return list;
}

}

QList<SearchFinding::Group> SearchFinding::find(const QString &typed, const QList<int> &kinds, int hits, int database)
{
    const SearchQuery query = SearchQuery::of(typed);
    QList<Group> groups;
    if (query.isEmpty() || kinds.isEmpty())
        return groups;
    const Found found = Finding(kinds, database).find(query);
    for (const SearchKind &kind : SearchKinds::all()) {
        QList<qint32> records = inOrder(found.value(kind.number));
        if (records.isEmpty() || !kinds.contains(kind.number))
            continue;
        Group group{kind.number, kind.table, kind.group, records.mid(0, mostRecords), records.size() >= mostRecords, {}};
        // A row that a window for a new record has begun is found, and not shown.
        constexpr int spare = 3;
        group.hits = hitsOf(kind, records.mid(0, hits + spare), database);
        if (group.hits.isEmpty())
            continue;
        group.hits.resize(std::min<qsizetype>(group.hits.size(), hits));
        groups.append(group);
    }
    return groups;
}

QList<int> SearchFinding::readable()
{
    QList<int> kinds;
    for (const SearchKind &kind : SearchKinds::all()) {
        if (KSecurity::IsGranted(kind.form, KSecurity::Read))
            kinds.append(kind.number);
    }
    return kinds;
}
