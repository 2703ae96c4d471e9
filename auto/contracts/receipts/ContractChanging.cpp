// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractChanging.h"

#include "auto/contracts/document/ContractPosting.h"
#include "auto/contracts/figures/InstalmentSale.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/RecordCodes.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;

bool becomesInactive(const Contract &stored, const Contract &contract)
{
    return stored.m_iStatus == 0 && contract.m_iStatus == 1;
}

bool changesPerson(const Contract &stored, const Contract &contract, const ContractSide &side)
{
    return stored.*(side.personID) != contract.*(side.personID);
}

// The price leaves the books with the type.
bool dropsSale(const Contract &stored, const Contract &contract)
{
    return contract.m_iContractType != InstalmentSale::contractType && ContractPosting::holdsSale(stored);
}

// What was received for it, or paid, would stand against nothing.
void requireNoMoneyOfSale(const Contract &contract)
{
    CTblTemp receipts(contract.database());
    receipts.ExecuteQuery(KSql::formatted("SELECT SUM(dAmount) FROM Receipts WHERE iTable=%1 AND iRecordID=%2 AND iStatus=%3 AND iFor IN (%4,%5)",
                                          int(Contract::recordKind), contract.m_iID, int(CTblReceipts::valid), int(ReceiptPurpose::Instalment),
                                          int(ReceiptPurpose::Price)));
    const double amount = receipts.HasResultRow() ? receipts.GetDoubleFieldValue(0) : 0;
    if (amount > 0 && !IsEquals(amount, 0))
        throw ContractDeleting::MoneyReceived(
            u"بهای خودرو و اقساط این قرارداد در دفاتر است و بابت آن %1 %2 دریافت یا پرداخت شده است. تا آن باطل نشود، نوع قرارداد تغییر نمی‌کند."_s.arg(
                DToMoney(amount), OfficeSettings::read({}, contract.database()).moneyUnitName()));
}

// A receipt that says no side is that of the party it came from.
void requireNoMoneyOfOthers(const Contract &stored, const Contract &contract, const ContractSide &side)
{
    CTblTemp receipts(contract.database());
    receipts.ExecuteQuery(KSql::formatted("SELECT iPersonID,SUM(dAmount) FROM Receipts WHERE iTable=%1 AND iRecordID=%2 AND iStatus=%3 AND iFor<>%4 "
                                          "AND (iSide=%5 OR (iSide=0 AND iPersonID=%6)) AND iPersonID<>%7 GROUP BY iPersonID ORDER BY 2 DESC LIMIT 1",
                                          int(Contract::recordKind), contract.m_iID, int(CTblReceipts::valid), int(ReceiptPurpose::OnAccount),
                                          side.number, stored.*(side.personID), contract.*(side.personID)));
    if (!receipts.HasResultRow())
        return;
    throw ContractDeleting::MoneyReceived(
        u"به نام «%1» بابت این قرارداد %2 %3 دریافت یا پرداخت شده است. تا آن باطل نشود، %4 قرارداد شخص دیگری نمی‌شود."_s.arg(
            CTblPersonsMini::GetName(receipts.GetLongFieldValue(0)), DToMoney(receipts.GetDoubleFieldValue(1)),
            OfficeSettings::read({}, contract.database()).moneyUnitName(), ContractSide::nameOf(side.number)));
}

}

void ContractChanging::expect(int key)
{
    Contract().expectLock(key);
}

void ContractChanging::requireAllowed(const CTblAutomobilContracts &contract)
{
    const ContractSide &seller = ContractSide::of(ContractSide::seller);
    const ContractSide &buyer = ContractSide::of(ContractSide::buyer);
    // The row is still as it was.
    Contract stored(contract.database());
    if (!stored.lockRecord(contract.m_iID))
        return;
    const bool ends = becomesInactive(stored, contract);
    const bool drops = dropsSale(stored, contract);
    if (!ends && !drops && !changesPerson(stored, contract, seller) && !changesPerson(stored, contract, buyer))
        return;
    // As ContractLock does it: what decides here is the money of the contract.
    RecordCodes::lock(u"Receipts"_s, contract.database());
    if (ends)
        ContractDeleting::requireNothingReceived(stored, u"غیرفعال"_s);
    if (drops)
        requireNoMoneyOfSale(stored);
    for (const ContractSide *side : {&seller, &buyer}) {
        if (changesPerson(stored, contract, *side))
            requireNoMoneyOfOthers(stored, contract, *side);
    }
}
