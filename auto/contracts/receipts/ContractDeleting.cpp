// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractDeleting.h"

#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

void refuseFor(double amount, const QString &refusal, const QString &deed)
{
    if (amount > 0 && !IsEquals(amount, 0))
        throw ContractDeleting::MoneyReceived(refusal.arg(DToMoney(amount), OfficeSettings::read().moneyUnitName(), deed));
}

// One that bounced pays nothing, and the claim of it stands all the same.
int standingCheques(const CTblAutomobilContracts &contract)
{
    CTblTemp cheques(contract.database());
    cheques.FormatAndExecuteQuery("SELECT COUNT(*) FROM Cheques WHERE iTable=%d AND iRecordID=%d AND iState NOT IN (%d,%d)",
                                  int(CTblAutomobilContracts::recordKind), contract.m_iID, int(ChequeState::Returned), int(ChequeState::Void));
    return cheques.GetLongFieldValue(0);
}

}

void ContractDeleting::requireOfThisYear(const CTblAutomobilContracts &contract)
{
    if (contract.m_iDocNum < 1 || contract.m_iFiscalYear < 1)
        return;
    const int year = OfficeSettings::read({}, contract.database()).fiscalYear();
    if (contract.m_iFiscalYear != year)
        throw KAccountingError(u"سند این قرارداد (شماره %1) در دفترهای سال مالی %2 است و در سال مالی %3 حذف نمی‌شود. قرارداد را می‌توانید بایگانی کنید."_s.arg(
            QString::number(contract.m_iDocNum), QString::number(contract.m_iFiscalYear), QString::number(year)));
}

void ContractDeleting::requireNothingReceived(const CTblAutomobilContracts &contract, const QString &deed)
{
    const QList<ContractReceipts::Entry> entries = ContractReceipts::list(contract);
    refuseFor(ContractReceipts::sum(entries), u"بابت این قرارداد %1 %2 دریافت شده است. تا دریافت‌های آن باطل نشود، %3 نمی‌شود."_s, deed);
    refuseFor(ContractReceipts::sum(entries, CTblReceipts::paid), u"بابت این قرارداد %1 %2 پرداخت شده است. تا پرداخت‌های آن باطل نشود، %3 نمی‌شود."_s, deed);
    if (const int cheques = standingCheques(contract))
        throw MoneyReceived(u"در فهرست چک‌ها %1 چک بابت این قرارداد هست. تا مسترد یا باطل نشود، قرارداد %2 نمی‌شود."_s.arg(QString::number(cheques), deed));
}

void ContractDeleting::run(CTblAutomobilContracts &asked, const std::function<void()> &further)
{
    RowDeleting::run(asked, [&asked, &further] {
        ContractLock::take(asked, asked.m_iID);
        requireOfThisYear(asked);
        requireNothingReceived(asked);
        if (further)
            further();
    });
}
