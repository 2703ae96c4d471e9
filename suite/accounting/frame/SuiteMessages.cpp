// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/SuiteMessages.h"

using namespace Qt::StringLiterals;

QString SuiteMessages::count(qint64 rows)
{
    return u"تعداد : %1"_s.arg(rows);
}

QString SuiteMessages::deleteQuestion()
{
    return u"آیا از حذف این رکورد اطمینان دارید؟"_s;
}
