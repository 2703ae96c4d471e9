// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupMoment.h"

#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// Years of either calendar are far apart.
constexpr int firstOtherYear = 1800;

QDate dateOf(int year, int month, int day)
{
    return year >= firstOtherYear ? QDate(year, month, day) : ConvertToMiladi(year, month, day);
}

}

std::optional<BackupMoment> BackupMoment::fromText(const QString &text)
{
    const QString plain = ConvertToStandard(text).trimmed();
    if (plain.compare(u"now"_s, Qt::CaseInsensitive) == 0)
        return BackupMoment{.lastMinute = true};
    static const QRegularExpression form(u"\\A([0-9]{4})[-/]([0-9]{1,2})[-/]([0-9]{1,2})(?:[T ]+([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))?)\\z"_s);
    const QRegularExpressionMatch match = form.match(plain);
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QDate date = match.hasMatch() ? dateOf(number(1), number(2), number(3)) : QDate();
    const QTime time(number(4), number(5), number(6));
    if (!date.isValid() || !time.isValid())
        return {};
    return BackupMoment{.time = QDateTime(date, time, Qt::UTC)};
}

QString BackupMoment::shown() const
{
    return lastMinute ? u"آخرین دقیقه"_s : u"%1 ساعت %2"_s.arg(shamsiText(time.date()), time.time().toString(u"HH:mm:ss"_s));
}
