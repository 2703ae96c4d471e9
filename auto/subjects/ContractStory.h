// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Contracts and their instalments in the stories of cars, persons and contracts.
namespace ContractStory {

// Adds those that belong to the car, or to the person as either side, the newest so many.
void addOfCar(StoryScope &scope, int limit, int database);
void addOfPerson(StoryScope &scope, int limit, int database);

// How each was written and given back; nothing in a contract's own story, which tells it itself. Two statements.
QList<StoryEvent> contracts(const StoryScope &scope, int limit, int database);
// Those that were due until now. One statement.
QList<StoryEvent> instalments(const StoryScope &scope, int limit, int database);

// Takes what is told of a contract's own changes out of the entry.
QList<StoryEvent> tell(HistoryEntry &entry);

}
