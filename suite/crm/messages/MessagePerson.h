// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

// Whom a message is for.
struct TZCRMDATA_EXPORT MessagePerson
{
    QString name;
    QString addressed; // "آقای علی رضایی"
    QStringList numbers;

    // By key, in one statement; those that are gone are left out. Throws CMySQLException.
    static QHash<int, MessagePerson> read(const QList<int> &keys, int database = 0);
    // Somebody who is in the list of persons, or not: what a contract says of a party fills in for what the list does not have.
    MessagePerson orElse(const QString &otherName, const QStringList &telephones) const;
};
