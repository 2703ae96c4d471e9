// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

#include <vector>

// The merge fields of a contract: which columns each is made of, and how.
struct ContractMergeRow
{
    enum Format {
        Text,  // the first column that holds one
        Money, // the sum of the columns, less the deducted one
        Words, // the same in words, with the money unit
        Date,
        Time,
        Code,
        Title, // columns: sex, kind of person
        Plate, // a number plate as it stands on a car
        PlateTwo,
        PlateLetter,
        PlateThree,
        PlateRegion
    };

    QStringView name;
    Format format = Text;
    std::vector<QStringView> columns;            // of the contract; empty: the contract has none
    std::vector<QStringView> personColumns = {}; // used instead for an ordinary party, from its person's record
    QStringView deducted = {};

    bool isAmount() const { return format == Money || format == Words; }

    // In the stated order of each batch.
    static const std::vector<ContractMergeRow> &ofFirstParty();
    static const std::vector<ContractMergeRow> &ofSecondParty();
    static const std::vector<ContractMergeRow> &ofMatter();
    // The ones beside: of the contract, and of the office by the keys of its details.
    static const std::vector<ContractMergeRow> &further();
    static const std::vector<ContractMergeRow> &ofOffice();
};
