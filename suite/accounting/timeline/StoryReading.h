// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Reads what several sources tell, whatever their number, at once.
namespace StoryReading {

struct Told
{
    QList<StoryEvent> events;
    bool isCut = false; // a source has older ones
};

// The newest so many of each source. One statement for all that name columns. readable: the part of the scope of which sources tell that have no
// form of their own.
Told read(const QList<const StorySource *> &sources, const StoryScope &scope, const StoryScope &readable, int limit, int database);
// The names behind the keys of users, in one statement; by what they sign in with where they have none.
void nameUsers(QList<StoryEvent> &events, int database);

}
