// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/printing/ContractMergeFields.h"
#include "suite/utility/documents/DocumentParts.h"

#include <QDate>

// A contract's plan of instalments on paper.

struct InstalmentForPrinting
{
    int number = 0;
    QDate due;
    double amount = 0;
    QString description;
    QString cheque = {}; // number and bank of what was received for it; empty: none
};

// Its rows, each with number, day, amount, amount in words, description and cheque. moneyDecimals, moneyUnit: as of the contract.
DocumentParts::Table planTable(const QList<InstalmentForPrinting> &plan, int moneyDecimals, const QString &moneyUnit);
// What is said of the plan as a whole: how many instalments, their sum, the same in words, the first day and the last.
MergeBatch planMergeFields(const QList<InstalmentForPrinting> &plan, int moneyDecimals, const QString &moneyUnit);
