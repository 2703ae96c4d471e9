// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/CTblValues.h"
#include "suite/accounting/invoices/Invoice.h"

// An invoice as the fields that two users may change at once: its person, date and description, and as one field its lines with
// the figures below them.
class TZACCOUNTINGDATA_EXPORT InvoiceValues final : public CTblValues
{
public:
    explicit InvoiceValues(int database = 0);
    ~InvoiceValues() override;

    // The columns that count as one field.
    // A line of text per line, as the values hold them.
    static QStringList linesOf(const QList<InvoiceLine> &lines);
    static QList<QStringList> groups();
    void set(const Invoice &invoice);
    // The invoice that the values say, each of which is that of one of the two.
    Invoice merged(const Invoice &theirs, const Invoice &mine);
    // As users know a value: the person's name, the Shamsi date, amounts.
    static std::optional<QString> shown(const QString &column, const QVariant &value);
};
