// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/SuiteMessages.h"

QString SuiteMessages::count(qint64 rows)
{
    return QStringLiteral("تعداد : %1").arg(rows);
}

QString SuiteMessages::deleteQuestion()
{
    return QStringLiteral("آیا از حذف این رکورد اطمینان دارید؟");
}
