// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/DocumentRows.h"

#include "auto/db/CTblTemp.h"
#include "auto/db/KLookup.h"
#include "suite/accounting/CTblDocs.h"

namespace DocumentRows {

QList<Row> read(int num, int fiscalYear, int database)
{
    CTblDocs docs(database);
    docs.m_filter = QStringLiteral("iDocNum=%1 AND iFiscalYear=%2").arg(num).arg(fiscalYear);
    docs.m_sort = QStringLiteral("iID");
    QList<Row> rows;
    QList<int> accounts;
    QList<int> persons;
    for (docs.Open(true, true, true); !docs.IsEOF(); docs.MoveNext()) {
        rows.append({docs.m_iID, docs.m_iHesabMoeenCode, {}, {}, docs.m_sDesc, docs.m_dBed, docs.m_dBes});
        accounts.append(docs.m_iHesabMoeenCode);
        persons.append(docs.m_iPersonID);
    }
    const QHash<int, QString> accountNames = KLookup::names(QStringLiteral("HesabMoeen"), QStringLiteral("iCode"),
                                                            QStringLiteral("sName"), accounts, database);
    const QHash<int, QString> personNames = KLookup::names(QStringLiteral("Persons"), QStringLiteral("iID"),
                                                           QStringLiteral("sName2"), persons, database);
    for (qsizetype index = 0; index < rows.size(); ++index) {
        rows[index].accountName = accountNames.value(rows.at(index).account);
        rows[index].person = personNames.value(persons.at(index));
    }
    return rows;
}

Totals totals(const QList<Row> &rows)
{
    Totals sum;
    for (const Row &row : rows) {
        sum.debit += row.debit;
        sum.credit += row.credit;
    }
    return sum;
}

QHash<DocumentKey, double> amounts(const QList<DocumentKey> &documents, int database)
{
    QHash<DocumentKey, double> sums;
    if (documents.isEmpty())
        return sums;
    QStringList keys;
    keys.reserve(documents.size());
    for (const DocumentKey &document : documents)
        keys.append(QStringLiteral("(%1,%2)").arg(document.second).arg(document.first));
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(QStringLiteral("SELECT iFiscalYear,iDocNum,SUM(dBed) FROM Docs WHERE (iDocNum,iFiscalYear) IN (%1) "
                                      "GROUP BY iFiscalYear,iDocNum")
                           .arg(keys.join(u',')));
    for (; query.HasResultRow(); query.MoveNextResult())
        sums.insert({query.GetLongFieldValue(0), query.GetLongFieldValue(1)}, query.GetDoubleFieldValue(2));
    return sums;
}

QList<int> fiscalYears(int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(QStringLiteral("SELECT DISTINCT iFiscalYear FROM Documents ORDER BY iFiscalYear DESC"));
    QList<int> years;
    for (; query.HasResultRow(); query.MoveNextResult())
        years.append(query.GetLongFieldValue(0));
    return years;
}

}
