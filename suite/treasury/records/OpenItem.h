// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/ReceiptPurpose.h"

#include <QDateTime>

// Something that a person can pay or be paid for.
struct OpenItem
{
    ReceiptPurpose purpose; // its text names it
    double rest = 0;        // above 0
    QDateTime due;          // invalid: at once
};
