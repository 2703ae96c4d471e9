// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/importing/ImportField.h"

// Which column of a file fills which field, and the rows that come of it.
namespace ImportMapping {

using Columns = QHash<QString, int>; // by the key of the field, from 0; a field without a column is not in it

// Titles compare without blanks, colons and the forms of letters.
TZACCOUNTINGDATA_EXPORT QString titleKey(const QString &title);
// The row that holds the titles: of the first twenty that hold anything, the first with the most that fields know. From 0.
TZACCOUNTINGDATA_EXPORT int titleRow(const Sheet &sheet, const QList<ImportField> &fields);
TZACCOUNTINGDATA_EXPORT QStringList titlesIn(const Sheet &sheet, int titleRow);
// By the titles alone: a field's own title before its other words, a column for one field only.
TZACCOUNTINGDATA_EXPORT Columns matched(const QList<ImportField> &fields, const QStringList &titles);

// What is kept under a name: the titles of the columns, so that it also serves a file that has them in another order.
TZACCOUNTINGDATA_EXPORT QString toText(const Columns &columns, const QStringList &titles);
// For a file with these titles; what it does not have is left out. Empty for a text that is none.
TZACCOUNTINGDATA_EXPORT Columns fromText(const QString &text, const QStringList &titles);

// The rows below the titles that hold anything in one of these columns, each read by its field. Nothing is compared with other rows.
TZACCOUNTINGDATA_EXPORT QList<ImportRow> rows(const Sheet &sheet, int titleRow, const QList<ImportField> &fields, const Columns &columns);

}
