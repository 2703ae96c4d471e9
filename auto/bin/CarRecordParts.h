// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What goes with the module's records when they are deleted, and comes back with them: contracts, cars, demands, the car catalog.
namespace CarRecordParts {

// Enters it for as long as the module is loaded; again does nothing.
void enter();

}
