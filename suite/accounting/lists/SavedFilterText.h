// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the filters of a list ask for as a text that is kept: an object in JSON, of values by key.
namespace SavedFilterText {

TZACCOUNTINGDATA_EXPORT QString of(const QList<KListFilter> &filters, const KFilterValues &values);

struct Read
{
    KFilterValues values;
    // Something in the text is of no filter of the list: it was kept by a program that had others.
    bool isPartly = false;
};
// Of a text that cannot be read there are no values, and it is partly read.
TZACCOUNTINGDATA_EXPORT Read read(const QList<KListFilter> &filters, const QString &text);

}
