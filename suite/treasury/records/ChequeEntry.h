// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/Cheque.h"

// Enters a cheque in the register, within the unit that receives or pays by it.
namespace ChequeEntry {

// Throws FieldRefused by the names "sSayad", "sNumber", "sBank", "dateDue" for what is missing or wrong on the cheque itself.
TZTREASURYDATA_EXPORT void requireComplete(const Cheque &cheque);

// Throws FieldRefused "sSayad" when another cheque of that number is there that is neither void nor returned. Until the unit ends nobody
// enters one.
TZTREASURYDATA_EXPORT void requireUnused(const CTblCheques &entry, const QString &sayad);

// Adds the row, with what stands on the cheque and what entry holds beside it (kind, amount, person, what it is for); the key is in
// entry then. Until the unit ends nobody else enters one. Throws FieldRefused as requireComplete does, and when a cheque of that
// Sayad number is there already that is neither void nor returned.
TZTREASURYDATA_EXPORT void add(CTblCheques &entry, const Cheque &cheque);

}
