// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/RecordSaving.h"

#include <QHash>
#include <QString>

#include <optional>

// Saves a contract that a user has written or changed: row, accounting document and custom fields together or not at all.
namespace ContractSaving {

// The accounting document of the saved contract.
struct Posted
{
    int docNum = 0;
    int fiscalYear = 0;
};

// Value per field key; nothing where the user left the fields alone, which then stay as they are.
using CustomFields = std::optional<QHash<int, QString>>;

// Nothing when the contract is gone. Throws KAccountingError, with nothing kept, when no document could be added, and
// CMySQLException.
[[nodiscard]] std::optional<Posted> save(const RecordSaving::Decision<CTblAutomobilContracts> &decision,
                                         const CustomFields &customFields);

}
