// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Who or what the stories of the module's records are about. One statement each; nothing of a record that is gone.
namespace StoryHeads {

std::optional<StoryHead> ofCar(qint32 key, int database);
std::optional<StoryHead> ofContract(qint32 key, int database);
std::optional<StoryHead> ofDemand(qint32 key, int database);

}
