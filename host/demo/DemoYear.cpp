// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoYear.h"

#include "host/demo/DemoTimes.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/values/ShamsiDate.h"

void DemoYear::enter(const QDate &day)
{
    const int year = GetShamsi(day).year;
    if (GetDBSetting()->FiscalYear() == year && GetDBSetting()->FiscalYearOpeningDate().date() == ConvertToMiladi(year, 1, 1))
        return;
    GetDBSetting()->SetFiscalYear(year);
    GetDBSetting()->SetFiscalYearOpeningDate(midnight(ConvertToMiladi(year, 1, 1)));
}
