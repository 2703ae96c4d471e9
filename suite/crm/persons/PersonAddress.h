// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/letters/Letter.h"
#include "suite/crm/TzCRMDataExport.h"

// Persons as letters address them.
namespace PersonAddress {

// In that order, without those who are gone.
TZCRMDATA_EXPORT QList<LetterRecipient> read(const QList<qint32> &persons);

}
