// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/PlanAgreement.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QList>
#include <QString>

#include <optional>
#include <utility>

class CTblAutomobilContracts;

// What becomes of a stored plan when its contract is saved.
namespace PlanFollowing {

// The contract as it would be saved, and its plan as it is.
struct Facts
{
    PlanBasis contract;
    PlanFigures plan;
    QList<std::pair<int, double>> received; // by instalment

    friend bool operator==(const Facts &, const Facts &) = default;

    PlanAgreement agreement() const;
    QStringList sentences() const;
    QList<PlanChoice> choices() const { return agreement().choices(contract, plan); }
};

// What the user decided about these facts and no others.
struct Answer
{
    Facts facts;
    PlanChoice choice = PlanChoice::Leave;
};

// The user has to decide. Nothing was written.
class Undecided : public KAccountingError
{
public:
    explicit Undecided(Facts facts);
    ~Undecided() override;

    const Facts &facts() const { return m_facts; }

private:
    Facts m_facts;
};

// In the unit that saves the contract, which it has locked and set to what will be stored. Where that save changes what the plan
// follows and the plan then disagrees, it does what was answered, and throws Undecided where nothing was, or where the facts are
// others by now: another desk received an instalment, or changed the plan or the contract.
void run(const CTblAutomobilContracts &contract, const std::optional<Answer> &answer);

// The sentences about a stored contract and its plan; empty where they agree, or there is no plan. The contract is loaded.
QStringList disagreement(const CTblAutomobilContracts &contract);

}
