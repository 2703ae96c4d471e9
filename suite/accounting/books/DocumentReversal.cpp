// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentReversal.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentRows.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/OfficeSettings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

DocumentReversal::Reversing DocumentReversal::takeBack(int num, int fiscalYear, const QString &desc, int database)
{
    if (num < 1)
        return {};
    const OfficeSettings settings = OfficeSettings::read({}, database);
    if (fiscalYear == settings.fiscalYear()) {
        CTblDocuments::VoidDoc(num, fiscalYear, database);
        return {};
    }
    QList<DocumentRow> rows;
    for (const DocumentRows::Named &named : DocumentRows::read(num, fiscalYear, database))
        rows.append({named.row.account, named.row.personID, named.row.credit, named.row.debit, desc});
    const QDateTime day = std::clamp(QDateTime(settings.serverTime().date(), QTime(0, 0), Qt::UTC), settings.fiscalYearOpeningDate(),
                                     settings.fiscalYearClosingDate());
    DocumentWriter document({day, desc, rows}, database);
    if (!document.add(Accounts::documentKindReversal, settings.fiscalYear()))
        throw KAccountingError(u"سند برگشت ایجاد نشد؛ چیزی ثبت نشد."_s);
    document.writeRows();
    return {document.num(), document.fiscalYear()};
}
