// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRow.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <optional>

// Headers of the accounting documents. A document is known by its number within its fiscal year; number 0 means no
// document, and every operation here accepts it and then does nothing.
class TZACCOUNTINGDATA_EXPORT CTblDocuments : public KMySQL, private KLiveCount<CTblDocuments>
{
public:
    using KLiveCount<CTblDocuments>::liveCount;

    explicit CTblDocuments(int database = 0);
    ~CTblDocuments() override;
    QString GetTableName() const override;

    // Keeps everybody else from writing documents until the transaction ends. The first lock of every unit that writes, changes or deletes
    // one, or that locks what such a unit adds to (receipts, cheques, plans): a unit that held some of that and then waited for its
    // turn to draw a number would hold up the one whose turn it is. Throws CMySQLException; Other outside of a transaction.
    static void lockBooks(int database = 0);
    // Adds a header with the next number of the fiscal year and returns that number; 0 when the database is closed or the
    // fiscal year is below 1. Joins the caller's transaction; until that ends, nobody else draws a number of the
    // database, so that no two documents share one and a rollback leaves no gap. kind: see Accounts.h.
    [[nodiscard]] static int AddDoc(int kind, const QDateTime &date, const QString &desc, int fiscalYear, int database = 0);
    struct Header
    {
        int num = 0; // 0: none was added
        qint32 key = 0;
    };
    [[nodiscard]] static Header addHeader(int kind, const QDateTime &date, const QString &desc, int fiscalYear, int database = 0);
    // The next number of the fiscal year, for a header that the caller writes in the same transaction. Until that ends, nobody else
    // draws a number of the database.
    [[nodiscard]] static int drawNumber(int fiscalYear, int database = 0);
    // Gives an existing header a new date and description. False when there is no such document or the database is closed.
    static bool EditDoc(int num, int fiscalYear, const QDateTime &date, const QString &desc, int database = 0);
    struct Emptied
    {
        qint32 key; // of the header
        QList<DocumentRow> rows;
    };
    // The same, and takes its rows off: what was in it. Nothing when there is no such document or the database is closed.
    [[nodiscard]] static std::optional<Emptied> Rewrite(int num, int fiscalYear, const QDateTime &date, const QString &desc, int database = 0);
    // That it will be rewritten (KReadAhead).
    static void expectRewrite(int num, int fiscalYear, int database = 0);
    // Deletes the document's rows and keeps its header.
    static void EmptyDoc(int num, int fiscalYear, int database = 0);
    // The same, and what was in it.
    [[nodiscard]] static QList<DocumentRow> TakeRows(int num, int fiscalYear, int database = 0);
    // Deletes the document with its rows. kind and userID, when not 0, must be those of the header, else nothing is
    // deleted; a reason that is not empty is written to the log.
    static void DeleteDoc(int num, int fiscalYear, int kind, int userID, const QString &reason, int database = 0);
    // Removes the rows and makes the document void; it keeps its number, and no balance counts it.
    static void VoidDoc(int num, int fiscalYear, int database = 0);
    // What became of a document's rows, as the log of changes notes it with the header; nothing where they are the same.
    [[nodiscard]] static std::optional<KChangedValue> changedRows(const QList<DocumentRow> &before, const QList<DocumentRow> &after);
    // Whether the document has rows: one without any moves no money.
    static bool hasRows(int num, int fiscalYear, int database = 0);
    // Throws KAccountingError unless debit and credit of the rows are equal (IsEquals) and every row stands on an account
    // of the chart. To be called before the transaction that wrote the rows is committed.
    static void RequireBalanced(int num, int fiscalYear, int database = 0);
    // That it will be asked behind the next statement that writes (KReadAhead).
    static void expectBalanced(int num, int fiscalYear, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iNum = 0;
    qint32 m_iFiscalYear = 0;
    qint32 m_iKind = 0;
    QDateTime m_date;
    QString m_sDesc;
    qint32 m_iUserID = 0;
    qint32 m_iStatus = 0; // 0 valid, 1 void

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }

private:
    static qint32 editedKey(int num, int fiscalYear, const QDateTime &date, const QString &desc, int database);
};
