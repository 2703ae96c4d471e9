// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KDialog.h"

class FormGrid;

// The season's sales, purchases and their difference.
class CDlgPaymentAmount : public KDialog, private KSecurity
{
    Q_OBJECT

public:
    // Season 0 (spring) to 3 (winter) of a Shamsi year. Throws CMySQLException.
    CDlgPaymentAmount(int season, quint16 shamsiYear, QWidget *parent = nullptr);

private:
    static void addAmount(FormGrid *grid, const QString &caption, double amount);
};
