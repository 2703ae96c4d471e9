// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentRows.h"

#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"
#include "suite/accounting/books/CTblDocs.h"

using namespace Qt::StringLiterals;

namespace DocumentRows {

QList<Named> read(int num, int fiscalYear, int database)
{
    CTblDocs docs(database);
    docs.m_filter = KSql::formatted("iDocNum=%1 AND iFiscalYear=%2", num, fiscalYear);
    docs.m_sort = "iID";
    QList<Named> rows;
    QList<int> subsidiary;
    QList<int> detail;
    QList<int> persons;
    for (docs.Open(true, true, true); !docs.IsEOF(); docs.MoveNext()) {
        const bool isDetail = docs.m_iHesabTafsilyCode > 0;
        const int account = isDetail ? docs.m_iHesabTafsilyCode : docs.m_iHesabMoeenCode;
        rows.append({docs.m_iID, {account, docs.m_iPersonID, docs.m_dBed, docs.m_dBes, docs.m_sDesc}, {}, {}});
        (isDetail ? detail : subsidiary).append(account);
        persons.append(docs.m_iPersonID);
    }
    const KReadAhead reading(database);
    KLookup::expectNames(docs, u"iHesabTafsilyCode", detail);
    KLookup::expectNames(docs, u"iPersonID", persons);
    // A code shows its level by its length, so one hash can hold the names of both.
    QHash<int, QString> accountNames = KLookup::names(docs, u"iHesabMoeenCode", subsidiary);
    accountNames.insert(KLookup::names(docs, u"iHesabTafsilyCode", detail));
    const QHash<int, QString> personNames = KLookup::names(docs, u"iPersonID", persons);
    for (Named &named : rows) {
        named.accountName = accountNames.value(named.row.account);
        named.person = personNames.value(named.row.personID);
    }
    return rows;
}

QHash<DocumentKey, double> amounts(const QList<DocumentKey> &documents, int database)
{
    QHash<DocumentKey, double> sums;
    if (documents.isEmpty())
        return sums;
    QList<KSql> keys;
    keys.reserve(documents.size());
    for (const DocumentKey &document : documents)
        keys.append(KSql::formatted("(%1,%2)", document.second, document.first));
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT iFiscalYear,iDocNum,SUM(dBed) FROM Docs WHERE (iDocNum,iFiscalYear) IN (%1) "
                                       "GROUP BY iFiscalYear,iDocNum",
                                       KSql::joined(keys, ",")));
    for (; query.HasResultRow(); query.MoveNextResult())
        sums.insert({query.GetLongFieldValue(0), query.GetLongFieldValue(1)}, query.GetDoubleFieldValue(2));
    return sums;
}

QList<int> fiscalYears(int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT DISTINCT iFiscalYear FROM Documents ORDER BY iFiscalYear DESC");
    QList<int> years;
    for (; query.HasResultRow(); query.MoveNextResult())
        years.append(query.GetLongFieldValue(0));
    return years;
}

}
