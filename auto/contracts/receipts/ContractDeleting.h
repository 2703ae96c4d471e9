// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KAccountingError.h"

#include <QString>

#include <functional>

class CTblAutomobilContracts;

// Deletes a contract for which no money was received or paid, and no cheque is in the register.
namespace ContractDeleting {

// Money was received or paid for the contract, or a cheque stands for it; the text says how much, and what is to be done first.
class MoneyReceived : public KAccountingError
{
public:
    using KAccountingError::KAccountingError;
};

// Throws KAccountingError for a contract whose document is in the books of another fiscal year: they stay as they are, and it can be archived.
// The year is read from the database. The contract is loaded.
void requireOfThisYear(const CTblAutomobilContracts &contract);
// Throws MoneyReceived. The contract is loaded. deed: what is refused then, the first word of "حذف نمی‌شود".
void requireNothingReceived(const CTblAutomobilContracts &contract, const QString &deed = QStringLiteral("حذف"));
// Deletes the contract that the user was asked about, as RowDeleting does. Throws RowDeleting::Refused, and as the two above.
// further: run in the unit, on the locked contract, before it goes. Empty: nothing.
void run(CTblAutomobilContracts &asked, const std::function<void()> &further = {});

}
