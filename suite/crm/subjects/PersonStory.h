// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

// The stories of persons, and reminders in all stories.
namespace PersonStory {

// For as long as the program runs.
TZCRMDATA_EXPORT void enter();

}
