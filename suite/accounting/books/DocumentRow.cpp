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

QStringList documentLines(const QList<DocumentRow> &rows)
{
    const auto exactly = [](double value) { return QString::number(value, 'g', 17); };
    QStringList lines;
    for (const DocumentRow &row : rows)
        lines.append(QStringList{QString::number(row.account), QString::number(row.personID), exactly(row.debit), exactly(row.credit), QString(row.description).replace(u'\n', u' ')}
                         .join(u'\t'));
    return lines;
}
