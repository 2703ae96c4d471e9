// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// Texts that windows of several areas share, under the numbers that the suite knows them by.
namespace SuiteMessages {

// 100072: "تعداد : " and the number of rows.
TZACCOUNTINGDATA_EXPORT QString count(qint64 rows);
// 100073: the question before a record is deleted.
TZACCOUNTINGDATA_EXPORT QString deleteQuestion();

}
