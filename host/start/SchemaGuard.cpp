// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/SchemaGuard.h"

#include "suite/db/connection/KConnection.h"

#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QThread>

using namespace Qt::StringLiterals;

SchemaGuard::SchemaGuard(Callbacks callbacks)
    : m_callbacks(std::move(callbacks))
    , m_thread(QThread::currentThreadId())
{
    KConnection::setStatementObserver([this](const QString &statement) { meet(statement); });
}

SchemaGuard::~SchemaGuard()
{
    KConnection::setStatementObserver({});
}

void SchemaGuard::meet(const QString &statement)
{
    if (m_inside || QThread::currentThreadId() != m_thread)
        return;
    const QScopedValueRollback<bool> inside(m_inside, true);
    m_callbacks.beforeAny();
    static const QRegularExpression change(uR"(^\s*(?:(ALTER|CREATE)\s|DROP\s+TABLE\s+(?:IF\s+EXISTS\s+)?`?(\w+)|DROP\s))"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch found = change.match(statement);
    if (found.hasMatch())
        m_callbacks.beforeChange(found.captured(2));
}
