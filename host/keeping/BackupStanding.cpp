// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupStanding.h"

#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

QString BackupStanding::timeText(const QDateTime &when, const QDate &today)
{
    const QString time = when.toString(u"HH:mm"_s);
    return when.date() == today ? time : shamsiText(when.date()) + u' ' + time;
}

QString BackupStanding::text() const
{
    const QString when = timeText(taken, today);
    switch (kind) {
    case Kind::Unknown:
        return {};
    case Kind::None:
        return trouble.isEmpty() ? u"پشتیبان: هنوز نیست"_s : u"پشتیبان: ایراد دارد"_s;
    case Kind::Taking:
        return u"پشتیبان: در حال گرفتن…"_s;
    case Kind::Verifying:
        return u"پشتیبان: %1 در حال آزمون…"_s.arg(when);
    case Kind::Taken:
        return u"پشتیبان: %1"_s.arg(when);
    case Kind::Verified:
        return u"پشتیبان: %1 آزموده شد"_s.arg(when);
    case Kind::Refuted:
        return u"پشتیبان: %1 ایراد دارد"_s.arg(when);
    case Kind::Failed:
        break;
    }
    return u"پشتیبان: ایراد دارد"_s;
}

QString BackupStanding::tip() const
{
    QStringList lines;
    if (taken.isValid())
        lines << u"آخرین پشتیبان: %1"_s.arg(timeText(taken, {}));
    if (kind == Kind::Verified)
        lines << u"در %1 بازگردانده و با اصل سنجیده شد."_s.arg(timeText(verified, {}));
    if (!trouble.isEmpty())
        lines << trouble;
    return lines.join(u'\n');
}
