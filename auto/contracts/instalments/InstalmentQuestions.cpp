// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentQuestions.h"

#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/parties/PartyEntering.h"
#include "auto/contracts/parties/PartyQuestions.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Empty: money can be received for it.
QString refusalOf(const CTblAutomobilContracts &contract)
{
    if (contract.m_iID == 0)
        return u"این قرارداد در این میان حذف شده است."_s;
    if (contract.m_iStatus == 1)
        return u"این قرارداد باطل شده است."_s;
    // A contract that was never confirmed can still be cancelled, and a receipt would outlive it.
    return contract.m_iDocNum > 0 ? QString() : u"ابتدا قرارداد را تایید نمایید."_s;
}

// 0: there is none to receive from, and the user knows why.
int buyerOf(const CTblAutomobilContracts &contract, QWidget *parent)
{
    if (contract.m_iPersonSecondID > 0)
        return contract.m_iPersonSecondID;
    if (PartyEntering::of(contract, ContractSide::buyer))
        return PartyQuestions::enter(contract.m_iID, ContractSide::buyer, parent);
    g_pDlgWarning->Show(u"این قرارداد خریداری ندارد که از او دریافت شود. لطفا خریدار را در قرارداد مشخص کنید."_s, parent);
    return 0;
}

}

bool InstalmentQuestions::receive(int contractID, int paymentID, QWidget *parent)
{
    CTblAutomobilContracts contract;
    contract.IsRecordExist(u"iID"_s, contractID);
    QString refusal = refusalOf(contract);
    const std::vector<StoredInstalments::Row> rows = StoredInstalments::load(contractID, StoredInstalments::Scope::AllDepartments);
    const auto row = std::ranges::find(rows, paymentID, &StoredInstalments::Row::id);
    if (refusal.isEmpty() && row == rows.cend())
        refusal = u"این قسط دیگر در برنامه اقساط این قرارداد نیست."_s;
    else if (refusal.isEmpty() && row->state().kind == InstalmentState::Paid)
        refusal = u"قسط شماره %1 پرداخت شده است."_s.arg(row->number);
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, parent);
        return false;
    }
    const int buyer = buyerOf(contract, parent);
    if (buyer < 1)
        return false;
    return GetDBSetting()->CashFromPersonMulti(
        buyer, row->state().rest, StoredInstalments::receiptText(row->number, contract.m_iCode), parent,
        InstalmentReceiving::purpose({contractID, contract.number(), paymentID, row->number, row->received}));
}
