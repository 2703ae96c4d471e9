// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/AmountWords.h"

#include "suite/utility/look/LookFonts.h"
#include "suite/utility/values/Money.h"

AmountWords::AmountWords(QWidget *parent)
    : ElidedLabel(parent)
{
    LookFonts::applyHint(this);
}

void AmountWords::showAmount(double amount, const QString &unit)
{
    setText(wordsOf(amount, unit));
}

QString AmountWords::wordsOf(double amount, const QString &unit)
{
    const QString words = IsEquals(amount, 0) ? QString() : amountInWords(amount);
    return words.isEmpty() || unit.isEmpty() ? words : words + u' ' + unit;
}
