// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractDeleting.h"

#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"
#include "suite/accounting/changes/RowDeleting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

void ContractDeleting::requireNothingReceived(const CTblAutomobilContracts &contract)
{
    const double received = ContractReceipts::sum(ContractReceipts::list(contract));
    if (received > 0 && !IsEquals(received, 0))
        throw MoneyReceived(u"بابت این قرارداد %1 %2 دریافت شده است. تا دریافت‌های آن باطل نشود، حذف نمی‌شود."_s.arg(
            DToMoney(received), OfficeSettings::read().moneyUnitName()));
}

void ContractDeleting::run(CTblAutomobilContracts &asked)
{
    RowDeleting::run(asked, [&asked] {
        ContractLock::take(asked, asked.m_iID);
        requireNothingReceived(asked);
    });
}
