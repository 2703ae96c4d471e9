// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractPosting.h"

#include "auto/contracts/document/ContractDocumentRows.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"

namespace {

PartyKind partyKind(qint32 stored)
{
    return stored >= 0 && stored <= static_cast<qint32>(PartyKind::Other) ? static_cast<PartyKind>(stored)
                                                                          : PartyKind::None;
}

ContractForDocument forDocument(const CTblAutomobilContracts &contract)
{
    ContractForDocument document;
    document.commission = contract.m_dCommission;
    document.first = {contract.m_iPersonFirstID, contract.m_sName1, partyKind(contract.m_iPersonContract1),
                      contract.m_dDiscountFirst, contract.m_dPercentTax, contract.m_dTax,
                      contract.m_dPercentImpsition, contract.m_dImposition};
    document.second = {contract.m_iPersonSecondID, contract.m_sName2, partyKind(contract.m_iPersonContract2),
                       contract.m_dDiscountSecond, contract.m_dPercentTax2, contract.m_dTax2,
                       contract.m_dPercentImposition2, contract.m_dImposition2};
    return document;
}

// Puts the header in place and leaves it without rows.
bool writeHeader(CTblAutomobilContracts &contract)
{
    const int number = contract.m_iNum != 0 ? contract.m_iNum : contract.m_iCode;
    const QString description = contractDocumentDescription(contract.m_iContractType, number);
    if (contract.m_iDocNum != 0
        && CTblDocuments::EditDoc(contract.m_iDocNum, contract.m_iFiscalYear, contract.m_dateContract, description,
                                  contract.database())) {
        CTblDocuments::EmptyDoc(contract.m_iDocNum, contract.m_iFiscalYear, contract.database());
        return true;
    }
    const int fiscalYear = GetDBSetting()->FiscalYear();
    const int added = CTblDocuments::AddDoc(Accounts::documentKindContract, contract.m_dateContract, description,
                                            fiscalYear, contract.database());
    if (added == 0)
        return false;
    contract.m_iDocNum = added;
    contract.m_iFiscalYear = fiscalYear;
    return true;
}

}

bool ContractPosting::post(CTblAutomobilContracts &contract)
{
    if (!writeHeader(contract))
        return false;
    for (const ContractDocumentRow &row : contractDocumentRows(forDocument(contract))) {
        CTblDocs::AddRecord({contract.m_iDocNum, contract.m_iFiscalYear, Accounts::kolOf(row.account), row.account, 0,
                             row.personID, row.debit, row.credit, row.description},
                            contract.database());
    }
    CTblDocuments::RequireBalanced(contract.m_iDocNum, contract.m_iFiscalYear, contract.database());
    return true;
}
