// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/PlanFollowing.h"
#include "suite/utility/frame/KDialog.h"

#include <optional>

class QButtonGroup;

// Says where a contract that is about to be saved and its instalment plan disagree, and asks what becomes of the plan ("برنامه اقساط").
class CDlgPlanChoice final : public KDialog
{
    Q_OBJECT

public:
    // Empty: the user went back to the contract.
    static std::optional<PlanChoice> ask(const PlanFollowing::Facts &facts, QWidget *parent);

    explicit CDlgPlanChoice(const PlanFollowing::Facts &facts, QWidget *parent = nullptr);
    ~CDlgPlanChoice() override;

    // What is chosen; the first that is offered until the user chooses another.
    PlanChoice choice() const;
    // False where it is not offered.
    bool choose(PlanChoice choice);

private:
    QButtonGroup *m_choices;
};
