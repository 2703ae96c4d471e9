// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/Importing.h"

// What the window of an import says.
namespace ImportTexts {

TZACCOUNTINGDATA_EXPORT QString trouble(const SheetError &error);
// "فایل «اشخاص.xlsx» در 1405/08/29 وارد شده است (120 ردیف). ..."
TZACCOUNTINGDATA_EXPORT QString earlier(const CTblImportedFiles::Entry &entry);
TZACCOUNTINGDATA_EXPORT QString counts(const Importing::Checked &checked);
TZACCOUNTINGDATA_EXPORT QString outcome(int written, qsizetype skipped);

}
