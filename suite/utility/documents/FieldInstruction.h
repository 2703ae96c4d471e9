// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// What the instruction of a merge field asks for, as in:  MERGEFIELD "Name" \* Upper \b "Mr " \f ", "
struct FieldInstruction
{
    enum class LetterCase {
        AsGiven,
        Upper,
        Lower,
        FirstLetter, // of the text, upper
        EveryWord    // its first letter, upper
    };

    QString name; // empty: no merge field
    LetterCase letterCase = LetterCase::AsGiven;
    bool lookOfInstruction = false; // \* CHARFORMAT: looks as the instruction does, not as the former result
    QString before, after;          // stand around a value that is not blank

    static FieldInstruction parse(const QString &instruction);

    QString shaped(const QString &value) const;
};
