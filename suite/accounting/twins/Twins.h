// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

#include <optional>

// Another record that says the same of itself as the one that is being entered: a car with the same VIN, a person with the same mobile.
struct Twin
{
    QString table;
    qint32 key = 0;
    QString text; // what people call it

    friend bool operator==(const Twin &, const Twin &) = default;
};

// Looks twins up in the index of the search, blind to the spelling. An index that is still being made knows fewer.
namespace Twins {

// How what is entered is compared.
enum class Sort {
    Number, // letters and digits
    Plate,
    Telephone
};

// What the text is compared by; empty: by nothing.
TZACCOUNTINGDATA_EXPORT QString keyOf(Sort sort, const QString &text);
// kind: of SearchKinds. column: of the record's table. exceptID: the record that is being entered. The newest of several; nothing for an empty
// text. Two or three statements, each by a key.
TZACCOUNTINGDATA_EXPORT std::optional<Twin> find(int kind, const QString &column, Sort sort, const QString &text, qint32 exceptID, int database = 0);
// The record as a twin; nothing for one that is gone.
TZACCOUNTINGDATA_EXPORT std::optional<Twin> of(int kind, qint32 key, int database = 0);

}
