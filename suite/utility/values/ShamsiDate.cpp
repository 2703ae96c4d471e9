// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/ShamsiDate.h"

#include <array>

#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

// A year is leap when (25*year + 11) mod 33 < 8. Summed up, the leap years before a year are (8*year + 21) / 33 but for
// a constant, which the day number of 1 Farvardin 1403 (20 March 2024) settles.
constexpr qint64 newYearJulianDay(int year)
{
    constexpr auto daysBefore = [](qint64 y) { return 365 * y + (8 * y + 21) / 33; };
    constexpr qint64 newYear1403 = 2460390;
    return newYear1403 + daysBefore(year) - daysBefore(1403);
}

constexpr bool isKnownYear(int year)
{
    return year >= firstShamsiYear && year <= lastShamsiYear;
}

constexpr int daysBeforeMonth(int month)
{
    return month <= 7 ? (month - 1) * 31 : 186 + (month - 7) * 30;
}

bool isSeparator(QChar c)
{
    return c == u'/' || c == u'-' || c == u'.';
}

// The digits of the text's parts; nothing when there is anything but digits parted by one and the same separator.
QStringList dateParts(const QString &text)
{
    QStringList parts{QString()};
    QChar separator;
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9') {
            parts.last().append(c);
        } else if (isSeparator(c) && (separator.isNull() || c == separator)) {
            separator = c;
            parts.append(QString());
        } else {
            return {};
        }
    }
    return parts;
}

}

ShamsiDate GetShamsi(const QDate &date)
{
    const qint64 julianDay = date.isValid() ? date.toJulianDay() : 0;
    if (julianDay < newYearJulianDay(firstShamsiYear) || julianDay >= newYearJulianDay(lastShamsiYear + 1))
        return {};
    int year = date.year() - 621;
    if (julianDay < newYearJulianDay(year))
        --year;
    const int dayOfYear = int(julianDay - newYearJulianDay(year));
    const int month = dayOfYear < 186 ? dayOfYear / 31 + 1 : (dayOfYear - 186) / 30 + 7;
    return {year, month, dayOfYear - daysBeforeMonth(month) + 1};
}

int GetShamsiYearOfToday()
{
    return GetShamsi(QDate::currentDate()).year;
}

QDate ConvertToMiladi(int year, int month, int day)
{
    if (day < 1 || day > shamsiDaysInMonth(year, month))
        return {};
    return QDate::fromJulianDay(newYearJulianDay(year) + daysBeforeMonth(month) + day - 1);
}

bool IsShamsiLeapYear(int year)
{
    return isKnownYear(year) && (25 * year + 11) % 33 < 8;
}

QDate shamsiYearEnd(int year)
{
    return ConvertToMiladi(year, 12, shamsiDaysInMonth(year, 12));
}

int shamsiDaysInMonth(int year, int month)
{
    if (!isKnownYear(year) || month < 1 || month > 12)
        return 0;
    if (month == 12)
        return IsShamsiLeapYear(year) ? 30 : 29;
    return month <= 6 ? 31 : 30;
}

QDate addShamsiMonths(const QDate &date, int months)
{
    const ShamsiDate from = GetShamsi(date);
    if (!from.isValid())
        return {};
    const int count = from.year * 12 + from.month - 1 + months;
    const int year = count / 12;
    const int month = count % 12 + 1;
    return ConvertToMiladi(year, month, qMin(from.day, shamsiDaysInMonth(year, month)));
}

QString shamsiText(const QDate &date)
{
    const ShamsiDate shamsi = GetShamsi(date);
    if (!shamsi.isValid())
        return {};
    QString text = u"0000/00/00"_s;
    const auto put = [&text](int last, int value) {
        for (; value > 0; value /= 10)
            text[last--] = QChar(u'0' + value % 10);
    };
    put(3, shamsi.year);
    put(6, shamsi.month);
    put(9, shamsi.day);
    return text;
}

QDate parseShamsi(QStringView text)
{
    QStringList parts = dateParts(ConvertToStandard(text.toString()));
    if (parts.size() == 1 && parts.first().size() == 8) {
        const QString digits = parts.first();
        parts = {digits.left(4), digits.mid(4, 2), digits.mid(6)};
    }
    if (parts.size() != 3 || parts[0].size() != 4 || parts[1].size() > 2 || parts[2].size() > 2)
        return {};
    return ConvertToMiladi(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
}

QString shamsiMonthName(int month)
{
    static const std::array<QString, 12> names{
        u"فروردین"_s, u"اردیبهشت"_s, u"خرداد"_s, u"تیر"_s,
        u"مرداد"_s, u"شهریور"_s, u"مهر"_s, u"آبان"_s,
        u"آذر"_s, u"دی"_s, u"بهمن"_s, u"اسفند"_s};
    return month >= 1 && month <= 12 ? names[size_t(month - 1)] : QString();
}

int shamsiDayOfWeek(const QDate &date)
{
    return date.isValid() ? (date.dayOfWeek() + 1) % 7 : -1;
}

QString shamsiDayName(int dayOfWeek)
{
    static const std::array<QString, 7> names{u"شنبه"_s, u"یکشنبه"_s,
                                              u"دوشنبه"_s, u"سه‌شنبه"_s,
                                              u"چهارشنبه"_s, u"پنجشنبه"_s,
                                              u"جمعه"_s};
    return dayOfWeek >= 0 && dayOfWeek < 7 ? names[size_t(dayOfWeek)] : QString();
}
