// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/Cheque.h"
#include "suite/treasury/TzTreasuryDataExport.h"

// Cheques from one book, one for each month.
namespace ChequeSeries {

// The next leaf: the number one further, due in the next Shamsi month on the same day or that month's last. Its Sayad number is left
// empty, since those follow no order. What is not known of the last one is not of the next one either.
TZTREASURYDATA_EXPORT Cheque next(const Cheque &last);
// The number one further, with as many digits and whatever stands before them; empty where the last one ends in no digit.
TZTREASURYDATA_EXPORT QString nextNumber(const QString &last);

}
