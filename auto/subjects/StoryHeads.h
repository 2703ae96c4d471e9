// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Who or what the stories of the module's records are about. One statement each.
namespace StoryHeads {

StoryHead ofCar(qint32 key, int database);
StoryHead ofContract(qint32 key, int database);
StoryHead ofDemand(qint32 key, int database);

}
