// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRow.h"

#include <QDateTime>

// What an accounting document says.
struct DocumentContent
{
    QDateTime date;
    QString description;
    QList<DocumentRow> rows;
};

// Writes one accounting document: its header by add or by rewrite, then its rows. What the owner of the document stores of
// its number may be stored in between. Joins the caller's transaction. Throws CMySQLException.
class TZACCOUNTINGDATA_EXPORT DocumentWriter
{
public:
    // Throws KAccountingError unless the rows balance; nothing is written then.
    explicit DocumentWriter(DocumentContent content, int database = 0);

    // Adds a header of the kind (Accounts.h) with the next number of the fiscal year. False, with nothing written, when the
    // database is closed or there is no fiscal year.
    [[nodiscard]] bool add(int kind, int fiscalYear);
    // Gives a stored document the new date and description and takes its rows off; it keeps its number, fiscal year, kind,
    // user and state. False, with nothing written, when there is no such document or the database is closed.
    [[nodiscard]] bool rewrite(int num, int fiscalYear);
    // Writes the rows below the header. Throws KAccountingError for a row that no document may hold, for an account that the
    // chart does not have, and when what stands in the document then does not balance.
    void writeRows() const;

    // Of the document whose header was written; 0 before.
    int num() const { return m_num; }
    int fiscalYear() const { return m_fiscalYear; }

    // The sentence that refuses rows that do not balance; empty for those that do.
    static QString imbalance(const QList<DocumentRow> &rows);

private:
    // In the log of changes; nothing where they are the same.
    void noteRows() const;

    DocumentContent m_content;
    int m_database;
    int m_num = 0;
    qint32 m_header = 0; // its key
    int m_fiscalYear = 0;
    QList<DocumentRow> m_before; // what stood in it
    // The rows of a new document follow from its owner, except for one that was written by hand.
    bool m_notesRows = false;
};
