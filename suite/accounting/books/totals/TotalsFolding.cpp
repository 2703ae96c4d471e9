// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/totals/TotalsFolding.h"

#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcTotals, "tz.totals")

constexpr int documentsPerUnit = 4000;
constexpr qsizetype rowsPerStatement = 500;
// Who reads a balance is not kept longer than some seconds; the next one goes on.
constexpr int documentsBeside = 40000;

QList<int> keysIn(const KSql &statement, int database)
{
    QList<int> keys;
    CTblTemp query(database);
    query.Open(false, false, true);
    for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

KSql among(const QList<int> &keys)
{
    return keys.isEmpty() ? KSql("IN (NULL)") : "IN (" + KSql::list(keys) + ")";
}

// As a table, to be joined with what has these keys.
KSql takenKeys(const QList<int> &keys)
{
    return "JSON_TABLE('[" + KSql::list(keys) + "]','$[*]' COLUMNS(iID INT PATH '$')) taken";
}

// Those that nobody else is changing. By their keys alone, which locks these rows and no gap: new ones are added meanwhile.
QList<int> locked(const KSql &from, const QList<int> &keys, const KSql &condition, int database)
{
    if (keys.isEmpty())
        return {};
    return keysIn("SELECT iID FROM " + from + " FORCE INDEX(PRIMARY) WHERE iID " + among(keys) + condition + " FOR UPDATE SKIP LOCKED", database);
}

// By month and by day. Plain reading: the headers are locked, and whoever changes rows has that lock. From the keys to the rows, said outright: right
// after many rows were stored the server believes their tables to be empty, and would go through all rows for each document.
KSql sums(const QList<int> &documents, const QList<int> &changes)
{
    return "SELECT iMonth,iDay*levels.n,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,SUM(dBed),SUM(dBes),SUM(iRows) FROM ("
           "SELECT IFNULL(EXTRACT(YEAR_MONTH FROM h.date),0) iMonth,IFNULL(DAYOFMONTH(h.date),0) iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,"
           "SUM(CAST(dBed AS DECIMAL(50,10))) dBed,SUM(CAST(dBes AS DECIMAL(50,10))) dBes,COUNT(*) iRows FROM "
        + takenKeys(documents)
        + " STRAIGHT_JOIN Documents h FORCE INDEX(PRIMARY) ON h.iID=taken.iID STRAIGHT_JOIN Docs d FORCE INDEX(document) ON d.iDocNum=h.iNum "
          "AND d.iFiscalYear=h.iFiscalYear WHERE h.iStatus=0 GROUP BY 1,2,3,4,5 UNION ALL SELECT iMonth,iDay,iHesabKolCode,iHesabMoeenCode,"
          "iHesabTafsilyCode,dBed,dBes,iRows FROM "
        + takenKeys(changes)
        + " STRAIGHT_JOIN AccountTotalChanges c FORCE INDEX(PRIMARY) ON c.iID=taken.iID) found JOIN (SELECT 0 n UNION ALL SELECT 1) levels "
          "ON levels.n=0 OR found.iDay>0 GROUP BY 2,1,4,5,3 ORDER BY 2,1,4,5,3";
}

// False where nothing is left that could be had.
bool foldSome(int &done, int database)
{
    const QList<int> newDocuments = keysIn(KSql::formatted("SELECT iID FROM Documents WHERE bSummed=0 ORDER BY iID LIMIT %1", documentsPerUnit), database);
    const QList<int> newChanges = keysIn(KSql::formatted("SELECT iID FROM AccountTotalChanges ORDER BY iID LIMIT %1", documentsPerUnit), database);
    if (newDocuments.isEmpty() && newChanges.isEmpty())
        return false;
    bool folded = false;
    qsizetype taken = 0;
    KTransaction::runReplayable(
        [&] {
            TotalsFolding::lock(database);
            const QList<int> documents = locked("Documents", newDocuments, " AND bSummed=0", database);
            const QList<int> changes = locked("AccountTotalChanges", newChanges, {}, database);
            taken = documents.size();
            folded = !documents.isEmpty() || !changes.isEmpty();
            if (!folded)
                return;
            QList<KSql> rows;
            CTblTemp query(database);
            query.Open(false, false, true);
            for (query.ExecuteQuery(sums(documents, changes)); query.HasResultRow(); query.MoveNextResult()) {
                QList<KSql> values;
                for (int column = 0; column < 8; ++column)
                    values.append(KSql::quoted(query.GetTextFieldValue(column)));
                rows.append("(" + KSql::joined(values, ",") + ")");
            }
            TotalsFolding::add(rows, database);
            KConnection &connection = KConnection::forThread(database);
            // By their keys too: a scan would wait for those that were passed over. A deletion of some rows of a small table scans it, whatever
            // key is asked for, unless it joins them.
            if (!documents.isEmpty())
                connection.run("UPDATE Documents FORCE INDEX(PRIMARY) SET bSummed=1 WHERE iID " + among(documents));
            if (!changes.isEmpty())
                connection.run("DELETE c FROM " + takenKeys(changes) + " STRAIGHT_JOIN AccountTotalChanges c ON c.iID=taken.iID");
        },
        database);
    done += static_cast<int>(taken);
    return folded;
}

}

int TotalsFolding::behind(int atMost, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT COUNT(*) FROM (SELECT 1 FROM Documents WHERE bSummed=0 LIMIT %1) some", atMost));
    return query.GetLongFieldValue(0);
}

void TotalsFolding::fold(const Progress &progress, int database)
{
    int done = 0;
    while (foldSome(done, database)) {
        if (progress && !progress(done))
            return;
    }
}

void TotalsFolding::foldBeside(int database)
{
    if (KConnection::forThread(database).inTransaction())
        return;
    try {
        fold([](int done) { return done < documentsBeside; }, database);
    } catch (const CMySQLException &error) {
        qCWarning(lcTotals).noquote() << "documents are not in the sums of accounts yet:" << error.GetErrorMessage();
    }
}

void TotalsFolding::lock(int database)
{
    NamedLock::take(u"AccountTotals"_s, database);
}

void TotalsFolding::add(const QList<KSql> &rows, int database)
{
    for (qsizetype from = 0; from < rows.size(); from += rowsPerStatement)
        KConnection::forThread(database).run("INSERT INTO AccountTotals(iMonth,iDay,iHesabKolCode,iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,iRows) VALUES"
                                             + KSql::joined(rows.mid(from, rowsPerStatement), ",")
                                             + " ON DUPLICATE KEY UPDATE dBed=dBed+VALUES(dBed),dBes=dBes+VALUES(dBes),iRows=iRows+VALUES(iRows)");
}
