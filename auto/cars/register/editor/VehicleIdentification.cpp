// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/VehicleIdentification.h"

#include "suite/utility/values/TextStandard.h"

#include <array>

namespace {

constexpr int length = 17;
constexpr int checkPosition = 8;
constexpr std::array<int, length> weights = {8, 7, 6, 5, 4, 3, 2, 10, 0, 9, 8, 7, 6, 5, 4, 3, 2};

// By letter from A; -1 for letters that no VIN contains.
constexpr std::array<int, 26> letterValues = {1, 2, 3, 4, 5, 6, 7, 8, -1, 1, 2, 3, 4,
                                              5, -1, 7, -1, 9, 2, 3, 4, 5, 6, 7, 8, 9};

// -1 for a character that no VIN contains.
int valueOf(QChar c)
{
    if (c >= u'0' && c <= u'9')
        return c.unicode() - u'0';
    if (c >= u'A' && c <= u'Z')
        return letterValues.at(static_cast<std::size_t>(c.unicode() - u'A'));
    return -1;
}

}

VehicleIdentification::State VehicleIdentification::check(QStringView number)
{
    const QString characters = toAsciiDigits(number.trimmed().toString()).toUpper();
    if (characters.isEmpty())
        return State::Empty;
    int sum = 0;
    for (int i = 0; i < characters.size(); ++i) {
        const int value = valueOf(characters.at(i));
        if (value < 0)
            return State::WrongCharacter;
        if (i < length)
            sum += value * weights.at(static_cast<std::size_t>(i));
    }
    if (characters.size() != length)
        return State::WrongLength;
    const int rest = sum % 11;
    const QChar expected = rest == 10 ? QChar(u'X') : QChar(u'0' + rest);
    return characters.at(checkPosition) == expected ? State::Good : State::WrongCheckDigit;
}
