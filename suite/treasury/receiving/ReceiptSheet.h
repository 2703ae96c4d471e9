// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/PaperSheet.h"
#include "suite/treasury/receiving/ReceiptDetails.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// A receipt ("رسید دریافت", "رسید پرداخت") as paper: a slip with a copy for each of the two sides.
namespace ReceiptSheet {

TZTREASURYDATA_EXPORT QString titleOf(const ReceiptDetails &receipt);
// office: its name, which stands under its signature. moneyUnit: as "ریال".
TZTREASURYDATA_EXPORT PaperSheet of(const ReceiptDetails &receipt, const QString &office, const QString &moneyUnit);

}
