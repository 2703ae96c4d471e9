// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

// What of persons and of the books is imported out of files.
namespace CrmImports {

// For as long as the program runs; a second call changes nothing.
TZCRMDATA_EXPORT void enter();

}
