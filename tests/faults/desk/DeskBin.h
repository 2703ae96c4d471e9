// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/faults/desk/Desk.h"

namespace DeskBin {

// bin TABLE KEY: takes the newest deletion of that record back. The record's key, which may be a new one; a refusal is the value, in the user's
// words.
Desk::Then takeBack(Desk &desk, const Desk::Words &words);

}
