// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// Where an accounting document comes from, by Documents.iKind (Accounts.h).
namespace DocumentKinds {

// For lists; one name for every kind that this program does not know.
TZACCOUNTINGDATA_EXPORT QString name(int kind);
// Empty for a document that was written by hand; otherwise the sentence that says why it cannot be changed by hand.
TZACCOUNTINGDATA_EXPORT QString refusal(int kind);

}
