// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryDataExport.h"

#include <QString>

// Makes a cheque that was entered wrongly void.
namespace ChequeVoiding {

// With the receipts or payments that it came by, as ReceiptPosting::makeVoid, which says what it throws. Also throws KAccountingError
// for a cheque that is gone.
TZTREASURYDATA_EXPORT void makeVoid(int chequeID, const QString &reason, int database = 0);

}
