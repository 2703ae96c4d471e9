// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/Letterhead.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/TzCRMDataExport.h"

// The office's details at the head of what it hands out.
namespace OfficeLetterhead {

// Without the logo, which is no detail.
TZCRMDATA_EXPORT Letterhead of(const CompanyDetails &office);
// With the logo. Throws CMySQLException.
TZCRMDATA_EXPORT Letterhead read();

}
