// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// What the list of invoices asks for. Defaults: every invoice.
struct InvoiceCriteria
{
    bool validOnly = false; // leave void invoices out
    int personID = 0;       // 0: anybody
    int type = 0;           // CTblFactors::sale or purchase; 0: both
    QDateTime from;         // invalid: open; the time of day does not count
    QDateTime to;           // the whole day is in
};

// A run of clauses, each beginning with " AND "; empty when nothing is asked.
QString invoiceFilter(const InvoiceCriteria &criteria);
