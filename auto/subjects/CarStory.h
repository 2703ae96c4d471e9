// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Cars and demands in the stories of each other and of persons.
namespace CarStory {

// The car's prices, pictures and its sale; takes what it tells out of the entry.
QList<StoryEvent> tell(HistoryEntry &entry);
// A change of the price in words; before or after 0: there was none. Amounts in the money unit.
StoryEvent priceEvent(double before, double after);

// In a car's story the demands that it fits, in a demand's the cars, the best so many.
QList<StoryEvent> matchingDemands(const StoryScope &scope, int limit, int database);
QList<StoryEvent> matchingCars(const StoryScope &scope, int limit, int database);
// In a person's story what they offered, bought and asked for.
QList<StoryColumns> cars(const StoryScope &scope);
std::optional<StoryEvent> tellCar(const StoryRow &row);
QList<StoryColumns> demands(const StoryScope &scope);
std::optional<StoryEvent> tellDemand(const StoryRow &row);

}
