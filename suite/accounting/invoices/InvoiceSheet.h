// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/invoices/Invoice.h"
#include "suite/accounting/papers/PaperSheet.h"

#include <optional>

// An invoice as paper.
namespace InvoiceSheet {

struct Source
{
    Invoice invoice;
    QString person;
    QString nationalCode;
    QStringList services; // name of each line's, empty for a line of words alone
    int docNum = 0;
    bool isVoid = false;
    QString user;
    QString moneyUnit;
    int decimals = 0;
};

TZACCOUNTINGDATA_EXPORT PaperSheet of(const Source &source);
// Nothing for an invoice that is gone.
TZACCOUNTINGDATA_EXPORT std::optional<PaperSheet> read(int num, int database = 0);

}
