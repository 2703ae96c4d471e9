// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/imported/ImportedKind.h"
#include "suite/accounting/waiting/LongTask.h"

#include <QList>
#include <QString>

#include <exception>

// Takes back what one file brought: all records that are as they came, in one unit of work. One that somebody has changed since, or that
// something else names, stays.
namespace ImportReturn {

struct Staying
{
    qint32 key = 0;
    QString name; // "شخص 12، علی رضایی"
    QString why;

    friend bool operator==(const Staying &, const Staying &) = default;
};

struct Plan
{
    qint32 file = 0;     // of ImportedFiles
    bool isKnown = true; // false: it is of a time before anybody noted which records a file brought
    QList<qint32> going; // keys
    QList<Staying> staying;

    friend bool operator==(const Plan &, const Plan &) = default;
};

// What is there now. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT Plan plan(const ImportedKind &kind, qint32 file, int database = 0);

// Others have changed something since the plan was made. Nothing was taken back.
struct TZACCOUNTINGDATA_EXPORT Changed : std::exception
{
    explicit Changed(Plan now)
        : now(std::move(now)) { }
    Plan now;
};

// Takes back what the plan says and returns how many. Throws LongTask::Stopped, Changed, KAccountingError without the right to delete, in a
// closed database and while somebody else takes a file of the kind back, CMySQLException; nothing is taken back then.
TZACCOUNTINGDATA_EXPORT int run(const ImportedKind &kind, const Plan &agreed, const LongTask::Progress &progress = {}, int database = 0);

}
