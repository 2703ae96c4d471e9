// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/RestoreExtent.h"

using namespace Qt::StringLiterals;

QString RestoreExtent::words() const
{
    if (!lastMinute)
        return reach.possible ? QString() : reach.problem;
    return reach.upToNow ? u"تغییرهای پس از پشتیبان تا آخرین دقیقه بازگردانده می‌شود."_s : reach.words();
}
