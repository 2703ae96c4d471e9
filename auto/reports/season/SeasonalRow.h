// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

// The party that a row of the seasonal report names to the tax authority.
struct TaxParty
{
    int personID = 0; // 0 when the row is nobody's in the list of persons
    bool natural = true;
    QString postalCode;
    QString areaCode;
    QString telephone;
    QString address;
    QString name;
    QString family;
    QString economicCode;
    QString nationalCode;
    int kindCode = 0; // 5 to 8; anything else is not stated
    int zone = 0;
    int provinceCode = 0;
    int cityCode = 0;

    // An address above this length must be shortened before the authority takes it.
    static constexpr int longestAddress = 80;
    bool isAddressTooLong() const { return address.size() > longestAddress; }
};

// One row of the seasonal report, kept small: the thirty cells are made from it when they are shown or written. Amounts are
// in the suite's money unit; an amount that is not there leaves its cell empty.
struct SeasonalRow
{
    enum class Source : quint8 {
        Contract,    // one party of a contract
        InvoiceLine, // of a service, or of something else that only its description names
        SmallSum     // the contracts below the minimum amount, together
    };

    enum Column {
        RowNumber,
        Serial,
        Description,
        Returned,
        Amount,
        Tax,
        PersonKind,
        PostalCode,
        AreaCode,
        Telephone,
        Address,
        Name,
        Family,
        EconomicCode,
        NationalCode,
        PartyKind,
        Zone,
        ProvinceCode,
        CityCode,
        IsSmallSum,
        Discount,
        Total,
        Code,
        Date,
        Duties,
        Payment,
        Heading,
        DocumentNumber,
        DocumentDate,
        GoodsKind,
        ColumnCount
    };

    Source source = Source::Contract;
    bool returned = false;
    int number = 0;      // of the row in the list, from 1
    int serviceCode = 0; // of a line's service; 0: none, the row's own number stands instead
    QString description; // name of the contract's type or of the service
    std::optional<double> amount;
    double tax = 0; // of a contract's party tax and duty together
    double duties = 0;
    std::optional<double> discount;
    std::optional<double> total;
    int code = 0; // of the contract, number of the invoice
    QDate date;
    int documentNumber = 0; // 0: no accounting document
    QDate documentDate;
    std::shared_ptr<const TaxParty> party; // null for a sum

    // The cell as the list shows it.
    QString text(int column) const;
    // What the cell sorts and adds up by: a number, a date, or else its text.
    QVariant value(int column) const;
    QStringList texts() const;
    // What the row is about, for a message: "فاکتور شماره 17".
    QString subject() const;
    // Whether the cell's address must be shortened.
    bool isAddressTooLong() const { return party && party->isAddressTooLong(); }

private:
    QString partyText(int column) const;
    std::optional<double> figure(int column) const;
};

// Column sums of the rows.
struct SeasonalTotals
{
    double amount = 0;
    double tax = 0;
    double discount = 0;
    double total = 0;

    void add(const SeasonalRow &row);
};
