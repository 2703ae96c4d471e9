// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// How money went from hand to hand. The numbers are stored in Receipts.iMethod, so they never move.
namespace ReceiptMethods {

enum Method : int {
    Unknown = 0, // from before it was kept
    Cash = 1,
    Bank = 2, // transfer to or from a bank account
    Card = 3, // card terminal
    Cheque = 4
};

// "نقدی", "بانکی", "کارت", "چک"; empty for unknown.
TZACCOUNTINGDATA_EXPORT QString name(int method);

}
