// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KReadAhead.h"

#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KConversation.h"

// Without a database there is nothing to read, ahead or at all; a window without one may hold it all the same.
KReadAhead::KReadAhead(int database)
    : m_database(database)
{
    if (KConnection::isConfigured(m_database))
        KConnection::forThread(m_database).beginReading();
}

KReadAhead::~KReadAhead()
{
    if (KConnection::isConfigured(m_database))
        KConnection::forThread(m_database).endReading();
}

void KReadAhead::expect(const QByteArray &statement, int database)
{
    if (KConnection::isConfigured(database))
        KConnection::forThread(database).expect(statement);
}

void KReadAhead::expectBehind(const KSql &statement, int database)
{
    if (KConnection::isConfigured(database))
        KConnection::forThread(database).expectBehind(statement.utf8());
}

void KReadAhead::endAll(int database)
{
    if (KConnection::isConfigured(database))
        KConnection::forThread(database).m_conversation->endAllReading();
}
