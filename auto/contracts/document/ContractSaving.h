// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/RecordSaving.h"

#include <QHash>
#include <QString>

#include <functional>

// Saves a contract that a user has written or changed: row, accounting document and custom fields together or not at all.
namespace ContractSaving {

// The accounting document of the saved contract.
struct Posted
{
    int docNum = 0;
    int fiscalYear = 0;
};

// Values of custom fields per field key.
struct CustomFields
{
    QHash<int, QString> opened;  // as the window read them
    QHash<int, QString> changed; // of those that the user changed since
};

// Whether the money received for the contract allows it, and what becomes of its instalment plan. Empty: the plan stays as it is.
struct PlanStep
{
    // Once the contract holds what both sides decided and before its document is written. Runs in the unit; what it throws ends the save, and
    // nothing of it is kept.
    std::function<void(CTblAutomobilContracts &)> run = {};
    // Names what it will read of the contract of that key (KReadAhead).
    std::function<void(int key)> expect = {};
};

using Decision = RecordSaving::Decision<CTblAutomobilContracts>;

// What is written along with the saved contract, behind its row. Runs in the unit, as PlanStep::run does. Empty: nothing.
using FurtherStep = std::function<void(CTblAutomobilContracts &)>;

// As RecordSaving does it. A custom field that both sides changed is one more conflict, under the name of customFieldName. Throws
// KAccountingError, with nothing kept, when no document could be added.
[[nodiscard]] Posted save(const Decision &decision, const CustomFields &customFields = {}, const PlanStep &plan = {}, const FurtherStep &further = {});
// As a new contract, with a document of its own and all values of the custom fields. key: where it goes.
[[nodiscard]] Posted saveAsNew(const Decision &decision, const CustomFields &customFields, int &key, const FurtherStep &further = {});

QString customFieldName(int fieldID);
// 0 for the name of a column.
int customFieldOf(const QString &name);
}
