// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class CTblAutomobilContracts;
class KMSWord;

// Fills the open document's merge fields with what a contract says, and leaves it open: it is neither saved nor shown.
namespace ContractFilling {

// The three batches in their order, then the letterhead. Reads the parties' persons and the office's details; throws CMySQLException.
void fill(KMSWord &word, CTblAutomobilContracts &contract);

}
