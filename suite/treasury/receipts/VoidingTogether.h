// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

#include <QList>
#include <QString>

#include <optional>

class QWidget;

// A slip that was spread over several things is one piece of paper: who takes one part back mostly means all of it.
namespace VoidingTogether {

// The receipt, and the other valid parts of the same handing over where the user wants them void too; asks only where there are
// some. Nothing when the user gives up. Throws CMySQLException.
TZTREASURYDATA_EXPORT std::optional<QList<int>> ask(int receiptID, QWidget *parent);
// Their numbers in a sentence.
TZTREASURYDATA_EXPORT QString numbersText(const QList<int> &receipts);

}
