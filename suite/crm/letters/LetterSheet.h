// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/PaperSheet.h"
#include "suite/crm/letters/Letter.h"
#include "suite/crm/TzCRMDataExport.h"

// A letter as paper.
namespace LetterSheet {

// office: the name that it is signed by; may be empty.
TZCRMDATA_EXPORT PaperSheet of(const Letter &letter, const LetterRecipient &recipient, const QString &office);

}
