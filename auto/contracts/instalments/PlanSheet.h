// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/instalments/StoredInstalments.h"
#include "suite/accounting/papers/PaperSheet.h"

#include <optional>

// The stored plan as the page of its contract that both parties and the office sign.
namespace PlanSheet {

struct Source
{
    int number = 0; // that the contract is called by
    QDate date;     // of the contract
    QString office;
    QString first; // the parties
    QString second;
    QString car;
    QString plate;
    QString chassis;
    std::vector<StoredInstalments::Row> rows;
    QString moneyUnit;
};

PaperSheet of(const Source &source);
// Nothing for a contract that is gone, or has no plan.
std::optional<PaperSheet> read(int contractID, const QString &office);

}
