// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// What the log of changes tells of a record.
namespace RecordChanges {

struct Told
{
    QList<StoryEvent> events;
    bool hasBeginning = false; // one of them tells how the record was entered
    bool isCut = false;        // there are older ones
};

// Those of the newest so many notes. Throws CMySQLException.
Told read(const StorySubject &subject, qint32 key, int limit, int database);

}
