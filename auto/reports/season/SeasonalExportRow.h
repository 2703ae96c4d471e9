// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Rule: what one row of the seasonal report's list becomes in the tax file. A value without content is not written.
struct SeasonalExportRow
{
    static constexpr int columnCount = 30;
    static constexpr int highestSequence = 1'000'000'000; // above it 0 is written

    // The texts of the row's thirty cells as the list shows them; missing ones count as empty. A text that is no number
    // counts as 0. A row whose second cell is empty is a sum of small contracts: it gets only the values marked "every row".
    static SeasonalExportRow fromCells(const QStringList &cells);
    // The list's column that a value of the detail table comes from; -1 for one of the export's own.
    static int columnOf(const QString &value);

    std::optional<int> goodsKind;
    QString description; // every row
    std::optional<int> sequence;
    bool isReturned = false; // every row
    QString amount;          // these four in every row: plain numbers, "1250000", "0.5"
    QString tax;
    QString duties;
    QString discount;
    std::optional<int> personKind; // 1 natural, 2 legal, nothing when the cell says neither
    std::optional<QString> postalCode;
    std::optional<QString> areaCode;
    std::optional<QString> telephone;
    std::optional<QString> address;
    std::optional<QString> name;
    QString family; // every row
    std::optional<QString> economicCode;
    std::optional<QString> nationalCode;
    std::optional<int> partyKind;
    std::optional<int> provinceCode;
    std::optional<int> cityCode;
    std::optional<QString> contractCode;
    std::optional<QString> contractDate;
    std::optional<QString> documentDate;

    friend bool operator==(const SeasonalExportRow &, const SeasonalExportRow &) = default;
};
