// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/MoneyOnAccount.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/CTblReceipts.h"

double MoneyOnAccount::of(int personID, int database)
{
    CTblTemp sum(database);
    sum.Open(true, false, true);
    sum.FormatAndExecuteQuery("SELECT IFNULL(SUM(IF(iKind=%d,-dAmount,dAmount)),0) FROM Receipts WHERE iPersonID=%d AND iTable=0 AND iStatus=%d",
                              int(CTblReceipts::paid), personID, int(CTblReceipts::valid));
    return sum.HasResultRow() ? sum.GetDoubleFieldValue(0) : 0;
}
