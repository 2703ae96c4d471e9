// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanFollowing.h"

#include "auto/contracts/figures/InstalmentSale.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/RecordCodes.h"
#include "suite/accounting/office/CDBSetting.h"

using namespace Qt::StringLiterals;

namespace {

using PlanFollowing::Facts;

PlanBasis basisOf(const CTblAutomobilContracts &contract)
{
    return {contract.m_iContractType == InstalmentSale::contractType,
            InstalmentSale::amountLeft(contract.m_dAmount, contract.m_dFixAmount, contract.m_dAgreeAmount), contract.m_iPersonSecondID};
}

Facts factsOf(const CTblAutomobilContracts &contract, const std::vector<StoredInstalments::Row> &rows)
{
    const PlanBasis basis = basisOf(contract);
    Facts facts{basis, StoredInstalments::figuresOf(rows, basis.left), {}};
    for (const StoredInstalments::Row &row : rows)
        facts.received.append({row.id, row.received});
    return facts;
}

// Whether this save changes what the plan follows; the row is still as it was.
bool changesBasis(const CTblAutomobilContracts &contract)
{
    CTblAutomobilContracts stored(contract.database());
    return !stored.lockRecord(contract.m_iID) || basisOf(stored) != basisOf(contract);
}

}

PlanFollowing::Undecided::Undecided(Facts facts)
    : KAccountingError(u"برنامه اقساط این قرارداد با آن یکی نیست. چیزی ذخیره نشد."_s)
    , m_facts(std::move(facts))
{
}

PlanFollowing::Undecided::~Undecided() = default;

PlanAgreement PlanFollowing::Facts::agreement() const
{
    return PlanAgreement::of(contract, plan, GetDBSetting()->MoneyDecimals());
}

QStringList PlanFollowing::Facts::sentences() const
{
    return agreement().sentences(contract, plan, GetDBSetting()->MoneyUnitName(), GetDBSetting()->MoneyDecimals());
}

void PlanFollowing::run(const CTblAutomobilContracts &contract, const std::optional<Answer> &answer)
{
    const std::vector<StoredInstalments::Row> rows = StoredInstalments::loadLocked(contract.m_iID);
    if (rows.empty())
        return;
    const Facts facts = factsOf(contract, rows);
    if (facts.agreement().agrees() || !changesBasis(contract))
        return;
    if (!answer || answer->facts != facts || !facts.choices().contains(answer->choice))
        throw Undecided(facts);
    if (answer->choice != PlanChoice::Spread && answer->choice != PlanChoice::Delete)
        return;
    // As ContractLock does it: the money of the contract is changed.
    RecordCodes::lock(u"Receipts"_s, contract.database());
    if (answer->choice == PlanChoice::Spread)
        StoredInstalments::spread(contract, rows, facts.contract.left);
    else
        StoredInstalments::removeLocked(contract.m_iID);
}

QStringList PlanFollowing::disagreement(const CTblAutomobilContracts &contract)
{
    const std::vector<StoredInstalments::Row> rows = StoredInstalments::load(contract.m_iID);
    if (rows.empty())
        return {};
    const Facts facts = factsOf(contract, rows);
    return facts.agreement().agrees() ? QStringList() : facts.sentences();
}
