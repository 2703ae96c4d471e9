// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractPosting.h"

#include "auto/contracts/document/ContractDocumentRows.h"
#include "auto/contracts/figures/InstalmentSale.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

PartyKind partyKind(qint32 stored)
{
    return stored >= 0 && stored <= static_cast<qint32>(PartyKind::Other) ? static_cast<PartyKind>(stored)
                                                                          : PartyKind::None;
}

KSql saleStatement(int docNum, int fiscalYear)
{
    return KSql::formatted("SELECT iID FROM Docs WHERE iDocNum=%1 AND iFiscalYear=%2 AND iHesabMoeenCode=%3 LIMIT 1 LOCK IN SHARE MODE",
                           docNum, fiscalYear, int(Accounts::carSaleClearing));
}

// What will be received by the plan, in the decimals of the money unit, less what it splits. Read as it is now and not as it was when
// the transaction began.
double planInterest(const CTblAutomobilContracts &contract)
{
    if (contract.m_iID < 1)
        return 0;
    CTblTemp plan(contract.database());
    plan.Open(true, false, true);
    plan.FormatAndExecuteQuery("SELECT dAmount,dExtra FROM AutomobilPayments WHERE iAutomobilContractID=%d LOCK IN SHARE MODE", contract.m_iID);
    long double total = 0;
    long double principal = 0;
    for (; plan.HasResultRow(); plan.MoveNextResult()) {
        total += plan.GetDoubleFieldValue(0);
        principal += plan.GetDoubleFieldValue(0) - plan.GetDoubleFieldValue(1);
    }
    const int decimals = GetDBSetting()->MoneyDecimals();
    return roundToDecimals(static_cast<double>(total), decimals) - roundToDecimals(static_cast<double>(principal), decimals);
}

// What the stored document holds of it.
double postedInterest(const CTblAutomobilContracts &contract)
{
    CTblTemp rows(contract.database());
    rows.Open(true, false, true);
    rows.FormatAndExecuteQuery("SELECT SUM(dBes-dBed) FROM Docs WHERE iDocNum=%d AND iFiscalYear=%d AND iHesabMoeenCode=%d LOCK IN SHARE MODE",
                               contract.m_iDocNum, contract.m_iFiscalYear, int(Accounts::instalmentInterest));
    return rows.HasResultRow() ? rows.GetDoubleFieldValue(0) : 0;
}

// The books of that year are closed.
void requirePostedInterest(const CTblAutomobilContracts &contract)
{
    if (!ContractPosting::holdsSale(contract) || IsEquals(postedInterest(contract), planInterest(contract)))
        return;
    throw KAccountingError(u"سند این قرارداد با سود اقساط آن در دفترهای سال مالی %1 است و در سال مالی %2 تغییر نمی‌کند؛ برنامه‌ای با سود دیگر ذخیره نمی‌شود و "
                           "این برنامه حذف نمی‌شود."_s.arg(QString::number(contract.m_iFiscalYear), QString::number(GetDBSetting()->FiscalYear())));
}

ContractForDocument withoutSale(const CTblAutomobilContracts &contract)
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

bool isSale(const CTblAutomobilContracts &contract)
{
    return contract.m_iContractType == InstalmentSale::contractType && contract.m_iPersonSecondID >= 1 && contract.m_dAmount > 0;
}

DocumentContent content(const CTblAutomobilContracts &contract, const ContractForDocument &document)
{
    return {contract.m_dateContract, contractDocumentDescription(contract.m_iContractType, contract.number()), contractDocumentRows(document)};
}

}

DocumentContent ContractPosting::documentOf(const CTblAutomobilContracts &contract)
{
    ContractForDocument document = withoutSale(contract);
    if (contract.m_iStatus == 0 && postsSale(contract))
        document.sale = {contract.m_dAmount, planInterest(contract)};
    return content(contract, document);
}

DocumentContent ContractPosting::documentOfNew(const CTblAutomobilContracts &contract, const ContractSettings &settings)
{
    ContractForDocument document = withoutSale(contract);
    if (contract.m_iStatus == 0 && settings.postPlan && isSale(contract))
        document.sale = {contract.m_dAmount, 0};
    return content(contract, document);
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

bool ContractPosting::holdsSale(const CTblAutomobilContracts &contract)
{
    if (contract.m_iDocNum < 1)
        return false;
    CTblTemp rows(contract.database());
    rows.Open(true, false, true);
    rows.ExecuteQuery(saleStatement(contract.m_iDocNum, contract.m_iFiscalYear));
    return rows.HasResultRow();
}

void ContractPosting::expect(int docNum, int fiscalYear, int database)
{
    if (docNum < 1)
        return;
    KReadAhead::expect(saleStatement(docNum, fiscalYear), database);
    CTblDocuments::expectRewrite(docNum, fiscalYear, database);
}

bool ContractPosting::postsSale(const CTblAutomobilContracts &contract)
{
    if (!isSale(contract))
        return false;
    return ContractSettings::load(contract.database()).postPlan || holdsSale(contract);
}

bool ContractPosting::isOfAnotherYear(const CTblAutomobilContracts &contract)
{
    return contract.m_iDocNum > 0 && contract.m_iFiscalYear > 0 && contract.m_iFiscalYear != GetDBSetting()->FiscalYear();
}

void ContractPosting::followPlan(CTblAutomobilContracts &contract)
{
    if (isOfAnotherYear(contract)) {
        requirePostedInterest(contract);
        return;
    }
    if (contract.m_iDocNum < 1 || !postsSale(contract))
        return;
    contract.Edit();
    if (!post(contract))
        throw KAccountingError(u"سند حسابداری قرارداد ایجاد نشد؛ چیزی ذخیره نشد."_s);
    contract.Update(true);
}
