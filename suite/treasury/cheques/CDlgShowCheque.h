// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class CTblCheques;
class FormGrid;

// One cheque with all that is kept of it, for viewing only.
class TZTREASURY_EXPORT CDlgShowCheque : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgShowCheque(const CTblCheques &cheque, QWidget *parent = nullptr);

    // Shows the cheque to a user who may read cheques; says so when the user may not or it is gone.
    static void Show(int chequeID, QWidget *parent);

private:
    void fillFields(FormGrid *grid, const CTblCheques &cheque);
};
