// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/NationalCode.h"

#include "suite/utility/values/TextStandard.h"

#include <algorithm>
#include <array>

namespace {

using NationalCode::State;

constexpr int personLength = 10;
constexpr int companyLength = 11;

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// The digits of a code of this many; or what is wrong with it.
State readDigits(QStringView code, int shortest, int longest, QString *digits)
{
    *digits = toAsciiDigits(code.trimmed().toString());
    if (digits->isEmpty())
        return State::Empty;
    if (!std::all_of(digits->cbegin(), digits->cend(), isAsciiDigit))
        return State::NotANumber;
    return digits->size() >= shortest && digits->size() <= longest ? State::Good : State::WrongLength;
}

bool isOneDigitRepeated(const QString &digits)
{
    return std::all_of(digits.cbegin(), digits.cend(), [&digits](QChar c) { return c == digits.front(); });
}

}

State NationalCode::checkPerson(QStringView code)
{
    QString digits;
    if (const State state = readDigits(code, personLength, personLength, &digits); state != State::Good)
        return state;
    int sum = 0;
    for (int i = 0; i < personLength - 1; ++i)
        sum += digits.at(i).digitValue() * (personLength - i);
    const int rest = sum % 11;
    const int expected = rest < 2 ? rest : 11 - rest;
    return digits.back().digitValue() == expected && !isOneDigitRepeated(digits) ? State::Good : State::WrongCheckDigit;
}

State NationalCode::checkCompany(QStringView code)
{
    static constexpr std::array weights{29, 27, 23, 19, 17};
    QString digits;
    if (const State state = readDigits(code, companyLength, companyLength, &digits); state != State::Good)
        return state;
    const int shift = digits.at(companyLength - 2).digitValue() + 2;
    int sum = 0;
    for (int i = 0; i < companyLength - 1; ++i)
        sum += (digits.at(i).digitValue() + shift) * weights.at(static_cast<std::size_t>(i) % weights.size());
    const int expected = sum % 11 % 10;
    return digits.back().digitValue() == expected && !isOneDigitRepeated(digits) ? State::Good : State::WrongCheckDigit;
}

State NationalCode::checkForeigner(QStringView code)
{
    QString digits;
    return readDigits(code, 8, 16, &digits);
}
