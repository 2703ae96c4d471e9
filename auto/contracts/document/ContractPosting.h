// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/DocumentWriter.h"

struct ContractSettings;

// Posts the accounting document of a contract.
namespace ContractPosting {

// The document of the contract whose members are filled: header text by type and number (iNum, or iCode while
// the contract has no number of its own), date of the contract, rows of contractDocumentRows.
[[nodiscard]] DocumentContent documentOf(const CTblAutomobilContracts &contract);
// The same for one that is new, has no plan yet, and is written in an office of these settings: the database is not asked.
[[nodiscard]] DocumentContent documentOfNew(const CTblAutomobilContracts &contract, const ContractSettings &settings);

// Writes the document (kind Accounts::documentKindContract) of the contract, which need not be in the table yet. A contract
// that has a document keeps its number and fiscal year, and the rows are rewritten; otherwise a document is added in the
// current fiscal year and iDocNum and iFiscalYear of the contract are set, to be saved by the caller.
//
// To be called inside the transaction that saves the contract. When that unit is replayed after a lock conflict, the
// contract must be loaded again first: iDocNum still names the document that was rolled back.
//
// The price of an instalment sale to a person of the suite, and the interest of its plan, stand in the document where the contract
// settings say so, and where the document holds them already: turning the setting off changes nobody's books. An inactive contract
// has sold nothing: its document holds neither.
//
// False: the suite assigned no document number; nothing more was written. Throws CMySQLException, and KAccountingError as
// DocumentWriter does.
[[nodiscard]] bool post(CTblAutomobilContracts &contract);

// Whether the stored document of the contract holds the price.
[[nodiscard]] bool holdsSale(const CTblAutomobilContracts &contract);
// That post will read the document of that number, and holdsSale be asked before (KReadAhead).
void expect(int docNum, int fiscalYear, int database = 0);
// Whether it will once it is written.
[[nodiscard]] bool postsSale(const CTblAutomobilContracts &contract);

// Whether the contract's document is in the books of another fiscal year than the current one, which stay as they are unless the
// contract itself is saved.
[[nodiscard]] bool isOfAnotherYear(const CTblAutomobilContracts &contract);

// Rewrites the document after the plan of the contract was changed; nothing where it has none, or one without the sale. Within
// the transaction that has locked and loaded the contract. Throws KAccountingError where there is no document to be had, and where
// one of another fiscal year would change.
void followPlan(CTblAutomobilContracts &contract);

}
