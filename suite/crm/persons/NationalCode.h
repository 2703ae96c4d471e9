// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QStringView>

// The numbers that the state assigns to people and companies. Digits may be Persian, Arabic or ASCII, with blanks around.
namespace NationalCode {

enum class State {
    Empty,
    Good,
    NotANumber, // something other than digits
    WrongLength,
    WrongCheckDigit // or ten times the same digit, which the rule would let through and nobody has
};

// National code of a person, ten digits. The last is the check digit: the others by weights 10 to 2, summed, modulo 11;
// a rest r below 2 is the check digit itself, for any other it is 11 - r.
TZCRMDATA_EXPORT State checkPerson(QStringView code);

// National identifier of a company, eleven digits. With t the tenth digit plus 2, the first ten digits, each plus t, are
// weighted by 29, 27, 23, 19, 17 twice over and summed; modulo 11, with 10 taken as 0, is the last digit.
TZCRMDATA_EXPORT State checkCompany(QStringView code);

// Comprehensive code of a foreign person: any eight to sixteen digits, there is no public check digit.
TZCRMDATA_EXPORT State checkForeigner(QStringView code);

}
