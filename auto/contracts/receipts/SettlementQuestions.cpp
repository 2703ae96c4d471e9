// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/SettlementQuestions.h"

#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/parties/PartyQuestions.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

// Why nothing can be received from that side; empty when it can.
QString settlingRefusal(const CTblAutomobilContracts &contract, const ContractSide &side)
{
    if (contract.m_iStatus == 1)
        return u"این قرارداد باطل شده است."_s;
    if (contract.*(side.kind) == static_cast<qint32>(PartyKind::Showroom))
        return u"%1 این قرارداد خود نمایشگاه است؛ نمایشگاه از خودش دریافتی ندارد."_s.arg(ContractSide::nameOf(side.number));
    if (contract.*(side.personID) < 1 && (contract.*(side.name)).trimmed().isEmpty())
        return u"%1 این قرارداد تعیین نشده است."_s.arg(ContractSide::nameOf(side.number));
    return {};
}

QString settledQuestion(const CTblAutomobilContracts &contract, const ContractSide &side, const ContractDues::Due &due)
{
    const QString received = DToMoney(due.received) + u' ' + OfficeSettings::read().moneyUnitName();
    const QString state = due.isSettled()
        ? u"حساب %1 قرارداد %2 تسویه شده است و %3 از او دریافت شده است."_s
        : u"سند قرارداد %2 از %1 کمیسیونی نمی‌خواهد؛ تا کنون %3 از او دریافت شده است."_s;
    return state.arg(ContractSide::nameOf(side.number), QString::number(contract.number()), received) + u" آیا مبلغ دیگری دریافت شود؟"_s;
}

bool receive(const CTblAutomobilContracts &contract, const ContractSide &side, QWidget *parent)
{
    // Before the rest is read: what another desk receives from here on is told when this one is saved.
    const ReceiptPurpose purpose = ContractReceipts::commission(contract, side.number);
    const ContractDues::Due due = ContractDues::commission(contract, side.number, ContractSettings::load().levySeparate);
    if (IsEquals(due.rest(), 0) && g_pDlgYesNo->Ask(settledQuestion(contract, side, due), parent) == KMessageDialog::No)
        return false;
    return GetDBSetting()->CashFromPersonMulti(contract.*(side.personID), due.rest(), ContractReceipts::commissionText(contract.number()),
                                               parent, purpose);
}

}

bool SettlementQuestions::settle(int contractID, int number, QWidget *parent)
{
    const ContractSide &side = ContractSide::of(number);
    KSecurity receipts;
    receipts.SetFormName(u"Receipts"_s);
    CTblAutomobilContracts contract;
    if (!receipts.CheckWriteSecurity() || !contract.IsRecordExist(u"iID"_s, contractID))
        return false;
    if (const QString refusal = settlingRefusal(contract, side); !refusal.isEmpty()) {
        g_pDlgMessage->Show(refusal, parent);
        return false;
    }
    if (contract.*(side.personID) > 0)
        return receive(contract, side, parent);
    if (PartyQuestions::enter(contractID, number, parent) == 0 || !contract.IsRecordExist(u"iID"_s, contractID))
        return false;
    receive(contract, side, parent);
    return true;
}
