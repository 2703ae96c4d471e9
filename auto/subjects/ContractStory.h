// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Contracts and their instalments in the stories of cars, persons and contracts.
namespace ContractStory {

// Adds those that belong to the car, or to the person as either side, the newest so many.
void addOfCar(StoryScope &scope, int limit, int database);
void addOfPerson(StoryScope &scope, int limit, int database);

// How each was written, and given back; nothing in a contract's own story, which tells it itself.
QList<StoryColumns> contracts(const StoryScope &scope);
std::optional<StoryEvent> tellContract(const StoryRow &row);
QList<StoryColumns> returns(const StoryScope &scope);
std::optional<StoryEvent> tellReturn(const StoryRow &row);
// Those that were due until now.
QList<StoryColumns> instalments(const StoryScope &scope);
std::optional<StoryEvent> tellInstalment(const StoryRow &row);

// Takes what is told of a contract's own changes out of the entry.
QList<StoryEvent> tell(HistoryEntry &entry);

}
