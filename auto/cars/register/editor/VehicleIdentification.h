// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

// The vehicle identification number (VIN) of ISO 3779: seventeen characters, digits and capital letters without I, O and Q.
// Surrounding blanks are ignored; small letters and Persian digits count as their counterparts.
//
// The ninth is a check digit over the others. Letters count A-H as 1 to 8, J-N as 1 to 5, P 7, R 9, S-Z as 2 to 9; the sum
// of the values times the weights 8 7 6 5 4 3 2 10 0 9 8 7 6 5 4 3 2, modulo 11, is the digit, 10 being written X. Not every
// maker follows it, so a wrong digit is only a hint.
namespace VehicleIdentification {

enum class State {
    Empty,
    Good,
    WrongLength,
    WrongCharacter,
    WrongCheckDigit
};

State check(QStringView number);

}
