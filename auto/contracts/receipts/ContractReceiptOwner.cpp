// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractReceiptOwner.h"

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"

ContractReceiptOwner::ContractReceiptOwner()
{
    ReceiptOwners::enter(CTblAutomobilContracts::recordKind, *this);
}

ContractReceiptOwner::~ContractReceiptOwner()
{
    ReceiptOwners::remove(CTblAutomobilContracts::recordKind);
}

void ContractReceiptOwner::enter()
{
    static const ContractReceiptOwner owner;
}

QList<OpenItem> ContractReceiptOwner::openItems(int, CTblReceipts::Kind) const
{
    return {};
}

void ContractReceiptOwner::lock(int recordID, bool mustExist) const
{
    CTblAutomobilContracts contract;
    if (mustExist)
        ContractLock::take(contract, recordID);
    else
        ContractLock::takeIfThere(contract, recordID);
}

void ContractReceiptOwner::recount(const CTblReceipts &receipt) const
{
    if (receipt.m_iPaymentID > 0 && StoredInstalments::lock(receipt.m_iRecordID, receipt.m_iPaymentID) != StoredInstalments::State::Gone)
        StoredInstalments::setPaid(receipt.m_iPaymentID, receipt.m_iStatus == CTblReceipts::valid);
}
