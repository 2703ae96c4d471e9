// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

#include "suite/utility/TzUtilityExport.h"

// An amount in words below its entry, over as many lines as it takes: the window grows rather than cut them.
class TZUTILITY_EXPORT AmountWords : public QLabel
{
    Q_OBJECT

public:
    explicit AmountWords(QWidget *parent = nullptr);

    // Empty for 0. The unit, where there is one, follows the words.
    void showAmount(double amount, const QString &unit = {});

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void claimHeight();
};
