// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QString>

#include <exception>

// What a failed statement, connection or record-set operation raises. Callers branch on the category,
// never on the message text.
class TZDB_EXPORT CMySQLException : public std::exception
{
public:
    enum class Category {
        ConnectionLost, // the server went away or was never there; the next operation connects anew
        DuplicateKey,   // a unique index already holds the value
        LockConflict,   // deadlock: the whole unit of work was rolled back and may be tried again
        LockWait,       // somebody else held what the statement needed for longer than the session waits
        GivenUp,        // the user gave up waiting for the server; nothing was saved
        OutcomeUnknown, // the connection broke while a transaction was saved, and no server could be asked since
        SavedAfterAll,  // what an earlier unit left open turned out to be saved; nothing was done now
        ValueTooLong,   // a text longer than its column, a number out of its column's range
        BadCharacter,   // a character that the column's character set cannot hold
        BadStatement,   // syntax error, unknown table or column
        AlreadySo,      // the schema is already as the statement wants it (duplicate column, existing table)
        DiskFull,       // the server has no room left to write
        NoCurrentRow,   // Edit, Update, Delete or a move on a set that stands on no row
        Other
    };

    CMySQLException(Category category, unsigned int serverCode, QString message, QString statement = {});

    // The error text of the server or of the record-set base, for the log and for a technical message.
    QString GetErrorMessage() const { return m_message; }
    // One Persian sentence for the user; names the column at fault, if there is one.
    QString userMessage() const;

    Category category() const { return m_category; }
    // The server's error number (1062, 2006 ...), 0 for an error of the record-set base itself.
    unsigned int serverCode() const { return m_serverCode; }
    // The statement that failed, for the log only; it may hold personal data.
    QString statement() const { return m_statement; }
    // OutcomeUnknown: what KTransaction::outcomeOf asks by; empty for every other category.
    QString token() const { return m_token; }
    void setToken(const QString &token) { m_token = token; }
    // LockWait: who holds what was waited for, as the message names them; empty when the server does not tell.
    QString holder() const { return m_holder; }
    void setHolder(const QString &holder) { m_holder = holder; }

    // Caption of the column to blame (ValueTooLong, BadCharacter), empty when unknown.
    QString columnCaption() const { return m_columnCaption; }
    void setColumnCaption(const QString &caption) { m_columnCaption = caption; }

    const char *what() const noexcept override { return m_utf8.constData(); }

    static Category categoryOf(unsigned int serverCode);

private:
    Category m_category;
    unsigned int m_serverCode;
    QString m_message;
    QString m_statement;
    QString m_columnCaption;
    QString m_token;
    QString m_holder;
    QByteArray m_utf8;
};
