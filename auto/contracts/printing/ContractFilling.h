// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class CTblAutomobilContracts;
class KMSWord;

// Fills the open document's merge fields with what a contract says, and leaves it open: it is neither saved nor shown.
namespace ContractFilling {

// First what the template marks (DocumentParts): parts that say nothing are left out, the plan's row is repeated, the logo put in. Then the
// three batches in their order, and the fields beside them. Reads the parties' persons, the plan and the office's details; throws CMySQLException.
void fill(KMSWord &word, CTblAutomobilContracts &contract);

}
