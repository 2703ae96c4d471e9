// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QList>

// What happened around one record, the newest first.
struct TZACCOUNTINGDATA_EXPORT Story
{
    // Events that are read at first, and more each time the reader asks for more.
    static constexpr int step = 200;

    StoryHead head;
    QList<StoryEvent> events;
    bool hasMore = false; // older ones were left out

    // Whether the current user may read stories of the table.
    static bool isOffered(const QString &table);
    // The newest so many events of what the current user may read. Throws KAccountingError for a record that is gone, without the right and
    // for a kind without a story; CMySQLException.
    static Story read(const QString &table, qint32 key, int limit = step, int database = 0);
    // Those of some kinds only.
    static QList<StoryEvent> only(const QList<StoryEvent> &events, const QList<StoryEvent::Kind> &kinds);
};
