// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/Money.h"

#include <array>
#include <cmath>
#include <memory>
#include <unicode/rbnf.h>
#include <unicode/unistr.h>

#include "suite/utility/values/TextStandard.h"
#include "suite/utility/values/TypedNumber.h"

namespace {

constexpr int mostDecimals = 4;

// Above this a double no longer tells whole numbers apart.
constexpr double largestExact = 9007199254740992.0;
// Above this its neighbours lie a quarter and more apart.
constexpr double largestFine = 1125899906842624.0;

int g_defaultDecimals = 0;

void group(QString &digits)
{
    const qsizetype point = digits.indexOf(u'.');
    const qsizetype first = digits.startsWith(u'-') ? 1 : 0;
    for (qsizetype at = (point < 0 ? digits.size() : point) - 3; at > first; at -= 3)
        digits.insert(at, u',');
}

bool isGroupSeparator(QChar c)
{
    return c == u',' || c == u'،' || c == u'٬' || c == u'\'' || c.isSpace();
}

// The number in the form that QString::toDouble reads; empty when it is none.
QString plainNumber(const QString &text)
{
    QString plain;
    bool pointSeen = false;
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9') {
            plain.append(c);
        } else if ((c == u'-' || c == u'−' || c == u'+') && plain.isEmpty()) {
            plain.append(c == u'+' ? u'+' : u'-');
        } else if (isDecimalPoint(c) && !pointSeen) {
            pointSeen = true;
            plain.append(u'.');
        } else if (!isGroupSeparator(c) || pointSeen || plain.isEmpty()) {
            return {};
        }
    }
    return plain;
}

// The usual case by itself, as lists hold it: ASCII digits with commas between, few enough to be exact.
bool readWholeNumber(QStringView text, double *amount)
{
    constexpr qsizetype mostCharacters = 19; // fifteen digits in groups of three
    if (text.isEmpty() || text.size() > mostCharacters || text.front() == u',')
        return false;
    qint64 number = 0;
    int digits = 0;
    for (const QChar c : text) {
        if (c == u',')
            continue;
        if (c < u'0' || c > u'9' || ++digits > 15)
            return false;
        number = 10 * number + (c.unicode() - u'0');
    }
    *amount = static_cast<double>(number);
    return true;
}

}

bool IsEquals(double first, double second)
{
    return std::abs(first - second) < 0.0001;
}

int defaultMoneyDecimals()
{
    return g_defaultDecimals;
}

void setDefaultMoneyDecimals(int decimals)
{
    g_defaultDecimals = qBound(0, decimals, mostDecimals);
}

double roundToDecimals(double value, int decimals)
{
    constexpr std::array<double, mostDecimals + 1> powers{1, 10, 100, 1000, 10000};
    const double power = powers[size_t(qBound(0, decimals, mostDecimals))];
    double scaled = value * power;
    if (!(std::abs(scaled) < largestExact))
        return value;
    // A computed amount may fall just short of the half that the decimal digits say (1.005 * 100, 4.35% of 10): one
    // rounding each in two multiplications.
    if (std::abs(scaled) < largestFine) {
        const double away = std::copysign(INFINITY, scaled);
        scaled = std::nextafter(std::nextafter(scaled, away), away);
    }
    const double rounded = std::round(scaled);
    return rounded == 0 ? 0 : rounded / power;
}

QString DToMoney(double amount, int decimals)
{
    if (!std::isfinite(amount))
        return {};
    const int shown = qBound(0, decimals, mostDecimals);
    QString text = QString::number(roundToDecimals(amount, shown), 'f', shown);
    group(text);
    return text;
}

bool parseMoney(QStringView text, double *amount)
{
    if (readWholeNumber(text, amount))
        return true;
    const QString plain = plainNumber(toAsciiDigits(text.trimmed().toString()));
    bool ok = false;
    const double value = plain.toDouble(&ok);
    if (ok)
        *amount = value;
    return ok;
}

QString LToStr(qint64 value)
{
    return QString::number(value);
}

QString IToStr(int value)
{
    return QString::number(value);
}

QString DToStr(double value)
{
    if (!std::isfinite(value))
        return {};
    QString text = QString::number(roundToDecimals(value, mostDecimals), 'f', mostDecimals);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

QString amountInWords(double amount)
{
    if (!std::isfinite(amount) || std::abs(amount) >= largestExact)
        return {};
    // Building the rules takes longer than all uses of them.
    static thread_local const auto speller = [] {
        UErrorCode status = U_ZERO_ERROR;
        auto format = std::make_unique<icu::RuleBasedNumberFormat>(icu::URBNF_SPELLOUT, icu::Locale("fa"), status);
        return U_SUCCESS(status) ? std::move(format) : nullptr;
    }();
    if (!speller)
        return {};
    icu::UnicodeString words;
    speller->format(roundToDecimals(amount, g_defaultDecimals), words);
    return ConvertToStandard(QString(reinterpret_cast<const QChar *>(words.getBuffer()), words.length()));
}
