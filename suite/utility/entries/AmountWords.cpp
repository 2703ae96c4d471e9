// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/AmountWords.h"

#include "suite/utility/values/Money.h"

AmountWords::AmountWords(QWidget *parent)
    : QLabel(parent)
{
    setWordWrap(true);
}

void AmountWords::showAmount(double amount, const QString &unit)
{
    const QString words = IsEquals(amount, 0) ? QString() : amountInWords(amount);
    setText(words.isEmpty() || unit.isEmpty() ? words : words + u' ' + unit);
    claimHeight();
}

void AmountWords::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    claimHeight();
}

// A layout asks for the height of this width too, but a window keeps its size when only that changes.
void AmountWords::claimHeight()
{
    setMinimumHeight(text().isEmpty() ? 0 : heightForWidth(width()));
}
