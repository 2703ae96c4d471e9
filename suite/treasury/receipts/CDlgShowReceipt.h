// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/receiving/ReceiptDetails.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class CardPage;
class FormGrid;

// One receipt or payment with everything that is known of it, for viewing only.
class TZTREASURY_EXPORT CDlgShowReceipt : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgShowReceipt(const ReceiptDetails &receipt, QWidget *parent = nullptr);

    // Shows it to a user who may read receipts; says so when the user may not or it is gone.
    static void Show(int receiptID, QWidget *parent);

private:
    void addMain(CardPage &page);
    void addCheque(CardPage &page);
    void addVoiding(CardPage &page);
    void addText(FormGrid *grid, const QString &label, const QString &text, int span = 1);
    void addCommands();

    const ReceiptDetails m_receipt;
};
