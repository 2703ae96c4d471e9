// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/ContractLock.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/RecordCodes.h"
#include "suite/accounting/changes/RowChanged.h"

using namespace Qt::StringLiterals;

void ContractLock::take(CTblAutomobilContracts &contract, qint32 key)
{
    if (!takeIfThere(contract, key))
        throw KAccountingError(u"%1 این قرارداد را در این میان حذف کرده است. چیزی ثبت نشد."_s.arg(
            RowChanged::lastChange(contract.GetTableName(), key, contract.database())));
}

// The nodes of a cluster compare what was written, not what was locked, so that something common is written too.
bool ContractLock::takeIfThere(CTblAutomobilContracts &contract, qint32 key)
{
    const bool isThere = contract.lockRecord(key);
    RecordCodes::lock(u"Receipts"_s, contract.database());
    return isThere;
}
