// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

class CTblAutomobilContracts;

// The lock before all that is about the money of a contract: its plan, what is received for it, and its deletion.
namespace ContractLock {

// Loads the contract. Until the end of the calling thread's transaction nobody else changes it, stores a plan for it, receives
// money for it or deletes it, also on another node of a cluster. Before any other reading in the transaction, which would go on
// seeing what was there at its beginning. Throws KAccountingError when the contract is gone.
void take(CTblAutomobilContracts &contract, qint32 key);
// The same for what may outlive its contract: false when the contract is gone.
bool takeIfThere(CTblAutomobilContracts &contract, qint32 key);

}
