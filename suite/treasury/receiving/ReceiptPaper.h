// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryExport.h"

#include <QList>

class QWidget;

// Shows receipts as paper, to a user who may read them; says so when the user may not, or none of them is there.
namespace ReceiptPaper {

TZTREASURY_EXPORT void show(const QList<int> &receiptIDs, QWidget *parent);

}
