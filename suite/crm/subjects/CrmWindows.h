// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMExport.h"

// Persons and reminders among RecordWindows.
namespace CrmWindows {

// For as long as the program runs; a second call changes nothing.
TZCRM_EXPORT void enter();

}
