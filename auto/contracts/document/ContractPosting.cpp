// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractPosting.h"

#include "auto/contracts/document/ContractDocumentRows.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"

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

}

DocumentContent ContractPosting::documentOf(const CTblAutomobilContracts &contract)
{
    return {contract.m_dateContract, contractDocumentDescription(contract.m_iContractType, contract.number()),
            contractDocumentRows(forDocument(contract))};
}

bool ContractPosting::post(CTblAutomobilContracts &contract)
{
    DocumentWriter document(documentOf(contract), contract.database());
    if (!document.rewrite(contract.m_iDocNum, contract.m_iFiscalYear)
        && !document.add(Accounts::documentKindContract, GetDBSetting()->FiscalYear()))
        return false;
    document.writeRows();
    contract.m_iDocNum = document.num();
    contract.m_iFiscalYear = document.fiscalYear();
    return true;
}
