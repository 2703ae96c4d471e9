// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchFinding.h"

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/accounting/search/SearchQuery.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/db/records/CTblTemp.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostExact = 40;
constexpr int mostOfAStart = 100;      // keys that are read of one beginning
constexpr int mostRecords = 100;       // of a kind
constexpr int mostByWords = 40;        // of a kind, by words that stand apart
constexpr int mostCandidates = 300;    // with one of several words
constexpr qsizetype enoughByWhole = 3; // whoever typed a name whole means it
constexpr int keysOfAPage = 25;        // that are read in their order in the time of a page that is not at hand

enum Rank : int {
    Whole,
    Beginning,
    End,
    Explanation
};

using Ranked = QHash<qint32, int>;

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

    void find(const SearchQuery &query)
    {
        findWhole(query.whole, query.words.size() < 2);
        if (query.words.size() > 1)
            findWords(query.words);
    }

    // By record, the best rank.
    Ranked records(int kind) const { return m_found.value(kind); }
    bool hasMore(int kind) const { return m_cut.contains(kind) || m_found.value(kind).size() >= mostRecords; }

private:
    // A beginning, or several that are read as one, of a kind.
    struct Part
    {
        int kind = 0;
        SearchQuery::Starts starts;
    };

    // Rows of kind, record, the key that it was found by (empty: by several words) and the number of the part. Returns how many rows each part had.
    QList<int> take(const QList<KSql> &parts, const SearchQuery::Starts &starts)
    {
        QList<int> rows(parts.size(), 0);
        if (parts.isEmpty())
            return rows;
        CTblTemp statement(m_database);
        statement.Open(false, false, true);
        statement.ExecuteQuery(KSql::joined(parts, " UNION ALL "));
        for (; statement.HasResultRow(); statement.MoveNextResult()) {
            Ranked &records = m_found[statement.GetLongFieldValue(0)];
            const qint32 record = statement.GetLongFieldValue(1);
            const int rank = rankOf(statement.GetTextFieldValue(2), starts);
            records.insert(record, std::min(rank, records.value(record, rank)));
            ++rows[statement.GetLongFieldValue(3)];
        }
        return rows;
    }

    // The first ones in the order of the keys, the whole key before longer ones. The beginnings of one word are read each by itself, so that
    // none takes the room of another; those of several words have few keys.
    void findWhole(const SearchQuery::Starts &starts, bool oneWord)
    {
        QList<Part> parts;
        for (const int kind : m_kinds) {
            if (!oneWord)
                parts.append({kind, starts});
            for (const QString &start : oneWord ? starts : SearchQuery::Starts())
                parts.append({kind, {start}});
        }
        QList<KSql> statements;
        for (const Part &part : std::as_const(parts))
            statements.append(KSql::formatted("(SELECT iKind,iRecordID,sKey,%1 FROM SearchKeys k FORCE INDEX (PRIMARY) WHERE k.iKind=%2 AND %3 ORDER BY iKind,sKey LIMIT %4)", int(statements.size()), part.kind, SearchQuery::beginsWith("k.sKey", part.starts), mostOfAStart));
        const QList<int> rows = take(statements, starts);
        parts.removeIf([&, number = 0](const Part &) mutable { return rows.at(number++) < mostOfAStart; });
        findNewest(parts, starts);
    }

    // Where not all were read, the whole key's newest may be among the others.
    void findNewest(const QList<Part> &cut, const SearchQuery::Starts &starts)
    {
        QList<KSql> statements;
        for (const Part &part : cut) {
            for (const QString &start : part.starts) {
                if (!start.startsWith(SearchText::backwards) && !start.startsWith(SearchText::explaining))
                    statements.append(KSql::formatted("(SELECT iKind,iRecordID,sKey,%1 FROM SearchKeys WHERE iKind=%2 AND sKey=%3 ORDER BY iRecordID DESC LIMIT %4)", int(statements.size()), part.kind, KSql::quoted(start), mostExact));
            }
        }
        take(statements, starts);
    }

    // Records in which each word is found.
    void findWords(const QList<SearchQuery::Starts> &words)
    {
        QList<int> wanting = m_kinds;
        wanting.removeIf([this](int kind) { return m_found.value(kind).size() >= enoughByWhole; });
        if (wanting.isEmpty())
            return;
        const QList<QList<int>> keys = estimateKeys(wanting, words);
        QList<KSql> statements;
        for (qsizetype i = 0; i < wanting.size(); ++i)
            statements.append(withAllWords(wanting.at(i), words, keys.at(i), int(i)));
        const QList<int> rows = take(statements, {});
        for (qsizetype i = 0; i < wanting.size(); ++i) {
            if (rows.at(i) >= mostByWords)
                m_cut.insert(wanting.at(i));
        }
    }

    // Beginning with the word that fewest have. The records of a word that is not much more common are read in the order of its keys and joined;
    // for a common one, each candidate's keys are looked at, which are on a page of their own. (By an EXISTS the server may turn it round, and
    // read all that have the word.)
    static KSql withAllWords(int kind, const QList<SearchQuery::Starts> &words, const QList<int> &keys, int number)
    {
        const qsizetype rarest = std::ranges::min_element(keys) - keys.cbegin();
        const auto records = [&](qsizetype word) { return KSql::formatted("SELECT DISTINCT iRecordID FROM SearchKeys k FORCE INDEX (PRIMARY) WHERE k.iKind=%1 AND %2", kind, SearchQuery::beginsWith("k.sKey", words.at(word))); };
        KSql joined;
        KSql where = "TRUE";
        bool isLimited = false;
        for (qsizetype word = 0; word < words.size(); ++word) {
            if (word == rarest)
                continue;
            if (keys.at(word) / keysOfAPage < std::min(keys.at(rarest), mostCandidates)) {
                joined += KSql::formatted(" STRAIGHT_JOIN (%1) w%2 ON w%2.iRecordID=c.iRecordID", records(word), int(word));
            } else {
                where += KSql::formatted(" AND (SELECT 1 FROM SearchKeys b FORCE INDEX (record) WHERE b.iKind=%1 AND b.iRecordID=c.iRecordID AND %2 LIMIT 1) IS NOT NULL", kind, SearchQuery::beginsWith("b.sKey", words.at(word)));
                isLimited = true;
            }
        }
        const KSql limit = isLimited ? KSql::formatted(" LIMIT %1", mostCandidates) : KSql();
        const KSql candidates = joined.isEmpty() ? records(rarest) + limit : KSql::formatted("SELECT c.iRecordID FROM (%1) c", records(rarest)) + joined + limit;
        return KSql::formatted("(SELECT %1,c.iRecordID,'',%2 FROM (%3) c WHERE %4 LIMIT %5)", kind, number, candidates, where, mostByWords);
    }

    // Of each kind, how many keys each word has, as the server's index tells without reading them: right for few, about right for many.
    QList<QList<int>> estimateKeys(const QList<int> &kinds, const QList<SearchQuery::Starts> &words) const
    {
        constexpr int number = 0;
        constexpr int rows = 8;
        QList<KSql> parts;
        for (const int kind : kinds) {
            for (const SearchQuery::Starts &word : words)
                parts.append(KSql::formatted("(SELECT 1 FROM SearchKeys k FORCE INDEX (PRIMARY) WHERE k.iKind=%1 AND %2)", kind, SearchQuery::beginsWith("k.sKey", word)));
        }
        QList<QList<int>> keys(kinds.size(), QList<int>(words.size(), 0));
        CTblTemp statement(m_database);
        statement.Open(false, false, true);
        statement.ExecuteQuery("EXPLAIN " + KSql::joined(parts, " UNION ALL "));
        for (; statement.HasResultRow(); statement.MoveNextResult()) {
            // The last row, of all parts together, has no number.
            const qsizetype part = statement.GetLongFieldValue(number) - 1;
            if (part >= 0 && part < parts.size())
                keys[part / words.size()][part % words.size()] = statement.GetLongFieldValue(rows);
        }
        return keys;
    }

    QList<int> m_kinds;
    int m_database;
    QHash<int, Ranked> m_found; // by kind
    QSet<int> m_cut;            // kinds of which others may have the words too
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
    Finding finding(kinds, database);
    finding.find(query);
    for (const SearchKind &kind : SearchKinds::all()) {
        QList<qint32> records = inOrder(finding.records(kind.number));
        if (records.isEmpty() || !kinds.contains(kind.number))
            continue;
        Group group{kind.number, kind.table, kind.group, records.mid(0, mostRecords), finding.hasMore(kind.number), {}};
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
