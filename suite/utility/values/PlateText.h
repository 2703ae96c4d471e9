// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/values/TzValuesExport.h"

#include <QString>

#include <optional>

// An Iranian number plate in its parts, from left to right as it is read on a car: "12 ب 345 ایران 67".
struct TZVALUES_EXPORT PlateText
{
    QString two;    // digits before the letter, in ASCII as the others
    QString letter; // in its standard form, "الف" for alef
    QString three;
    QString region;

    // The parts of a text that holds a plate and nothing else: from either end, the region first or last, with or without "ایران"
    // and separators, in the digits and letters of any keyboard, a letter also by its name. Nothing for a text of another form, such as a temporary plate or
    // one of a free zone, and where it could be read in two ways.
    static std::optional<PlateText> of(const QString &text);

    // The parts of a plate that is being typed in its own order, as far as they go; those to come are empty. Nothing where the text cannot
    // become a plate that way.
    static std::optional<PlateText> begun(const QString &text);
    // The one spelling that plates are stored in; a text that is no plate stays as it is.
    static QString oneSpelling(const QString &text);

    // The four parts as one text, in the order of the plate.
    QString text() const;
    // The same of one that is being typed, as far as it goes.
    QString typedText() const;
    bool isWhole() const;

    friend bool operator==(const PlateText &, const PlateText &) = default;
};
