// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <QStringList>
#include <QThread>

// The statements that run while an object of it lives, in their order, of those that begin with one of the given words.
// Statements that only set the session up are left out by the words, on purpose and in plain sight; the token that each unit of
// work writes is left out always.
class ObservedStatements
{
public:
    explicit ObservedStatements(QStringList words)
    {
        KConnection::setStatementObserver([this, words, here = QThread::currentThread()](const QString &statement) {
            // What a thread of its own reads meanwhile is not what is observed.
            if (QThread::currentThread() != here)
                return;
            for (const QString &word : words) {
                if (statement.startsWith(word) && !statement.startsWith(u"INSERT INTO UnitTokens"))
                    m_statements.append(statement);
            }
        });
    }
    ~ObservedStatements() { KConnection::setStatementObserver(nullptr); }
    ObservedStatements(const ObservedStatements &) = delete;
    ObservedStatements &operator=(const ObservedStatements &) = delete;

    QStringList taken() const { return m_statements; }

private:
    QStringList m_statements;
};
