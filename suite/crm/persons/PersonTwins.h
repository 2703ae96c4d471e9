// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/twins/Twins.h"
#include "suite/crm/TzCRMDataExport.h"

// Another person with the same national code, mobile, or name and father's name.
namespace PersonTwins {

TZCRMDATA_EXPORT std::optional<Twin> ofNationalCode(const QString &code, qint32 exceptID, int database = 0);
TZCRMDATA_EXPORT std::optional<Twin> ofMobile(const QString &mobile, qint32 exceptID, int database = 0);
// Nothing without a father's name: many people share a name. name: with the family name behind it.
TZCRMDATA_EXPORT std::optional<Twin> ofName(const QString &name, const QString &father, qint32 exceptID, int database = 0);

}
