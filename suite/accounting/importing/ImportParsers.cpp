// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportParsers.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The part that all have in common: nothing for an empty cell, and what a formula could not compute.
ImportParser reading(const std::function<ImportParsed(const SheetCell &cell, const QString &text)> &read)
{
    return [read](const SheetCell &cell) -> ImportParsed {
        if (ImportParsers::isNothing(cell))
            return {};
        if (cell.kind == SheetCell::Kind::Error)
            return {{}, u"فرمول این خانه خطا دارد (%1). مقدار آن را بنویسید."_s.arg(cell.text)};
        return read(cell, ConvertToStandard(cell.text));
    };
}

std::optional<double> numberIn(const SheetCell &cell, const QString &text)
{
    double number = cell.number;
    if (cell.kind != SheetCell::Kind::Number && !parseMoney(text, &number))
        return std::nullopt;
    return number;
}

ImportParser amount(double most, const QString &what)
{
    return reading([most, what](const SheetCell &cell, const QString &text) -> ImportParsed {
        const std::optional<double> number = numberIn(cell, text);
        if (!number)
            return {{}, u"«%1» %2 نیست. تنها رقم بنویسید."_s.arg(text, what)};
        if (!(*number >= 0) || *number > most)
            return {{}, u"«%1» باید از 0 تا %2 باشد."_s.arg(text, DToMoney(most, 0))};
        return {*number};
    });
}

// The day of year, month and day, in whichever calendar has such a year.
QDate dayOf(int year, int month, int day)
{
    if (year >= firstShamsiYear && year <= lastShamsiYear)
        return ConvertToMiladi(year, month, day);
    return year >= 1800 && year <= 2200 ? QDate(year, month, day) : QDate();
}

int monthNamed(const QString &name)
{
    for (int month = 1; month <= 12; ++month) {
        if (searchKey(shamsiMonthName(month)) == searchKey(name))
            return month;
    }
    return 0;
}

}

bool ImportParsers::isNothing(const SheetCell &cell)
{
    const QString text = cell.text.trimmed();
    return text.isEmpty() || text == "-"_L1;
}

QDate ImportParsers::dateIn(const QString &text)
{
    static const QRegularExpression behind(u"^(.*\\d)[ T]+\\d{1,2}:\\d{2}(:\\d{2}(\\.\\d+)?)?$"_s);
    static const QRegularExpression parts(u"^(\\d{1,4})[/.\\- ]+(\\d{1,2})[/.\\- ]+(\\d{1,4})$"_s);
    static const QRegularExpression named(u"^(\\d{1,2}) +(\\D+) +(\\d{4})$"_s);
    static const QRegularExpression whole(u"^(\\d{4})(\\d{2})(\\d{2})$"_s);
    QString plain = toAsciiDigits(text).trimmed();
    if (const auto match = behind.match(plain); match.hasMatch())
        plain = match.captured(1);
    if (const auto match = parts.match(plain); match.hasMatch()) {
        const bool yearFirst = match.capturedLength(1) == 4;
        if (!yearFirst && match.capturedLength(3) != 4)
            return {};
        return dayOf(match.captured(yearFirst ? 1 : 3).toInt(), match.captured(2).toInt(), match.captured(yearFirst ? 3 : 1).toInt());
    }
    if (const auto match = named.match(plain); match.hasMatch())
        return dayOf(match.captured(3).toInt(), monthNamed(match.captured(2)), match.captured(1).toInt());
    if (const auto match = whole.match(plain); match.hasMatch())
        return dayOf(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    return {};
}

ImportParser ImportParsers::text()
{
    return reading([](const SheetCell &, const QString &text) -> ImportParsed {
        if (std::ranges::any_of(text, [](QChar c) { return c.isSurrogate(); }))
            return {{}, u"نویسه‌ای دارد که ثبت نمی‌شود (مانند شکلک). آن را بردارید."_s};
        return {text};
    });
}

ImportParser ImportParsers::whole(qint64 least, qint64 most)
{
    return reading([least, most](const SheetCell &cell, const QString &text) -> ImportParsed {
        const std::optional<double> number = numberIn(cell, text);
        if (!number || std::floor(*number) != *number)
            return {{}, u"«%1» عدد درست نیست. تنها رقم بنویسید."_s.arg(text)};
        if (*number < static_cast<double>(least) || *number > static_cast<double>(most))
            return {{}, u"«%1» باید از %2 تا %3 باشد."_s.arg(text).arg(least).arg(most)};
        return {static_cast<qlonglong>(*number)};
    });
}

ImportParser ImportParsers::money()
{
    return amount(largestMoney, u"مبلغ"_s);
}

ImportParser ImportParsers::percent()
{
    return amount(100, u"درصد"_s);
}

ImportParser ImportParsers::date()
{
    return reading([](const SheetCell &cell, const QString &text) -> ImportParsed {
        const QDate day = cell.kind == SheetCell::Kind::Date ? cell.date : dateIn(text);
        if (!GetShamsi(day).isValid())
            return {{}, u"«%1» تاریخ نیست. مانند 1405/08/29 یا 2026-11-20 بنویسید."_s.arg(text)};
        return {QDateTime(day, QTime(0, 0), Qt::UTC)};
    });
}

ImportParser ImportParsers::flag()
{
    return word({{u"بله"_s, 1}, {u"خیر"_s, 0}, {u"بلی"_s, 1}, {u"آری"_s, 1}, {u"دارد"_s, 1}, {u"هست"_s, 1}, {u"1"_s, 1}, {u"yes"_s, 1}, {u"true"_s, 1}, {u"نه"_s, 0}, {u"ندارد"_s, 0}, {u"نیست"_s, 0}, {u"0"_s, 0}, {u"no"_s, 0}, {u"false"_s, 0}});
}

ImportParser ImportParsers::word(const QList<Word> &words)
{
    QHash<QString, int> known;
    QStringList named;
    QSet<int> seen;
    for (const Word &word : words) {
        known.insert(searchKey(word.text), word.number);
        if (!seen.contains(word.number))
            named.append(word.text);
        seen.insert(word.number);
    }
    return reading([known, named](const SheetCell &, const QString &text) -> ImportParsed {
        const auto found = known.constFind(searchKey(text));
        if (found == known.cend())
            return {{}, u"«%1» شناخته نشد. یکی از این‌ها را بنویسید: %2"_s.arg(text, named.join(u"، "_s))};
        return {*found};
    });
}

ImportParser ImportParsers::digits(int length, int mostMissing)
{
    return reading([length, mostMissing](const SheetCell &, const QString &text) -> ImportParsed {
        QString plain = toAsciiDigits(text);
        plain.removeIf([](QChar c) { return c == u' ' || c == u'-' || c.category() == QChar::Other_Format; });
        const bool isNumber = std::ranges::all_of(plain, [](QChar c) { return c >= u'0' && c <= u'9'; });
        if (isNumber && plain.size() < length && plain.size() >= length - mostMissing)
            plain = plain.rightJustified(length, u'0');
        return {isNumber ? plain : text};
    });
}
