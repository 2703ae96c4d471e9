// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/look/ElidedLabel.h"

// An amount in words beside or below its entry, in one line, in the colour of hints.
class TZUTILITY_EXPORT AmountWords : public ElidedLabel
{
    Q_OBJECT

public:
    explicit AmountWords(QWidget *parent = nullptr);

    // Empty for 0. The unit, where there is one, follows the words.
    void showAmount(double amount, const QString &unit = {});
    static QString wordsOf(double amount, const QString &unit = {});
};
