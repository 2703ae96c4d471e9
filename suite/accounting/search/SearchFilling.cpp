// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchFilling.h"

#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchProgress.h"
#include "suite/db/connection/KLongWork.h"
#include "suite/db/connection/KSortedInsert.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

// So many keys of records at a time: some hundred kilobytes, however large the office.
constexpr qint32 recordsAtOnce = 1000;
constexpr qsizetype rowBytes = qsizetype{512} * 1024;

qint32 number(const KSql &statement, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(statement);
    return query.GetLongFieldValue(0);
}

qint32 lastOf(const SearchKind &kind, int database)
{
    return number("SELECT COALESCE(MAX(iID),0) FROM " + KSql::name(kind.table), database);
}

class Rows
{
public:
    explicit Rows(int database)
        : m_sorted(u"SearchKeys"_s, {u"iKind"_s, u"sKey"_s, u"iRecordID"_s}, database)
    {
    }
    void add(int kind, const QString &key, const QByteArray &record)
    {
        m_rows += m_rows.isEmpty() ? "(" : ",(";
        m_rows += QByteArray::number(kind) + ',' + KSql::quoted(key).utf8() + ',' + record + ')';
        if (m_rows.size() > rowBytes)
            send();
    }
    void finish()
    {
        send();
        m_sorted.finish();
    }

private:
    void send()
    {
        if (!m_rows.isEmpty())
            m_sorted.put(m_rows);
        m_rows.clear();
    }

    KSortedInsert m_sorted;
    QByteArray m_rows;
};

void addStep(const SearchKind &kind, qint32 after, Rows &rows, int database)
{
    const KSql condition = KSql::formatted("t.iID>%1 AND t.iID<=%2", after, after + recordsAtOnce);
    for (const SearchRow &row : SearchKinds::read(kind.keyColumns, condition, database)) {
        const QByteArray record = row.constFirst().toLatin1();
        for (const QString &key : SearchKinds::keysOf(kind, row))
            rows.add(kind.number, key, record);
    }
}

// Millions of keys go over in one statement.
void fillEmpty(const SearchFilling::Progress &progress, int database)
{
    const KLongWork work;
    KTransaction transaction(database);
    const QList<SearchKind> kinds = SearchKinds::all();
    qint64 all = 0;
    for (const SearchKind &kind : kinds)
        all += lastOf(kind, database);
    Rows rows(database);
    qint64 done = 0;
    for (const SearchKind &kind : kinds) {
        const qint32 last = lastOf(kind, database);
        for (qint32 after = 0; after < last; after += recordsAtOnce) {
            addStep(kind, after, rows, database);
            if (progress)
                progress(done + qMin(last, after + recordsAtOnce), all);
        }
        done += last;
    }
    rows.finish();
    SearchProgress{SearchProgress::rulesVersion, 0, 0, true}.store(database);
    transaction.commit();
}

}

void SearchFilling::fill(const Progress &progress, int database)
{
    if (number("SELECT EXISTS(SELECT 1 FROM SearchKeys)", database) == 0)
        fillEmpty(progress, database);
    else
        SearchIndex::build(true, {}, database);
}
