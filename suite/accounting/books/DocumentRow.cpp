// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentRow.h"

AccountBalance documentSum(const QList<DocumentRow> &rows)
{
    AccountBalance sum;
    for (const DocumentRow &row : rows)
        sum += {row.debit, row.credit};
    return sum;
}
