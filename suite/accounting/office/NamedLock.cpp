// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/NamedLock.h"

#include "suite/accounting/office/CTblProperties.h"

#include <QUuid>

using namespace Qt::StringLiterals;

// A row per name, which the first to come makes and everybody writes. What is written is new each time, so that also the nodes
// of a cluster, which compare what was changed, see two holders as a conflict.
void NamedLock::take(const QString &name, int database)
{
    Q_ASSERT(KConnection::forThread(database).inTransaction());
    KConnection::forThread(database).runFirst(CTblProperties::writing(u"Codes"_s, name, QUuid::createUuid().toString(QUuid::WithoutBraces)));
}
